#include "host/postgresql/libpq.h"

#include <dlfcn.h>

#include <string>

#include "host/file_trouble.h"

namespace depcalc {
namespace {

constexpr const char* library_name = "libpq.so.5";

[[noreturn]] void refuse() {
  const char* const reason = ::dlerror();
  throw FileTrouble(FileTrouble::Kind::failed,
                    "Companies on a server need libpq, which is not installed here (" +
                        std::string(reason != nullptr ? reason : library_name) +
                        "). Install the package libpq5 and try again.");
}

template <typename Function>
void find(void* library, const char* name, Function& function) {
  void* const found = ::dlsym(library, name);
  if (found == nullptr) refuse();
  function = reinterpret_cast<Function>(found);
}

}  // namespace

Libpq loadedLibpq() {
  void* const library = ::dlopen(library_name, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) refuse();
  Libpq libpq;
  find(library, "PQconninfoParse", libpq.parse);
  find(library, "PQconninfoFree", libpq.freeOptions);
  find(library, "PQfreemem", libpq.freeMemory);
  find(library, "PQconnectdbParams", libpq.connect);
  find(library, "PQfinish", libpq.finish);
  find(library, "PQstatus", libpq.status);
  find(library, "PQerrorMessage", libpq.errorMessage);
  find(library, "PQconnectionNeedsPassword", libpq.needsPassword);
  find(library, "PQbackendPID", libpq.backendPid);
  find(library, "PQsetNoticeProcessor", libpq.setNoticeProcessor);
  find(library, "PQexecParams", libpq.execute);
  find(library, "PQresultStatus", libpq.resultStatus);
  find(library, "PQresultErrorField", libpq.errorField);
  find(library, "PQntuples", libpq.rows);
  find(library, "PQgetisnull", libpq.isNull);
  find(library, "PQgetvalue", libpq.value);
  find(library, "PQgetlength", libpq.length);
  find(library, "PQclear", libpq.clear);
  return libpq;
}

}  // namespace depcalc
