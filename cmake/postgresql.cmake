# PostgreSQL, where it is installed: what the extension is built for and the tests' servers run.
#   DEPCALC_POSTGRES_SERVER_FOUND   its programs are here
#   DEPCALC_POSTGRES_HEADERS_FOUND  and its headers for modules
find_program(PG_CONFIG pg_config)
mark_as_advanced(PG_CONFIG)

# depcalc_pg_config(VARIABLE OPTION): what pg_config answers to OPTION.
function(depcalc_pg_config variable option)
  execute_process(COMMAND "${PG_CONFIG}" ${option} OUTPUT_VARIABLE answer
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} "${answer}" PARENT_SCOPE)
endfunction()

set(DEPCALC_POSTGRES_SERVER_FOUND NO)
set(DEPCALC_POSTGRES_HEADERS_FOUND NO)
if(PG_CONFIG)
  depcalc_pg_config(DEPCALC_POSTGRES_BIN --bindir)
  depcalc_pg_config(DEPCALC_POSTGRES_INCLUDE --includedir-server)
  if(EXISTS "${DEPCALC_POSTGRES_BIN}/postgres")
    set(DEPCALC_POSTGRES_SERVER_FOUND YES)
  endif()
  if(EXISTS "${DEPCALC_POSTGRES_INCLUDE}/postgres.h")
    set(DEPCALC_POSTGRES_HEADERS_FOUND YES)
  endif()
endif()
