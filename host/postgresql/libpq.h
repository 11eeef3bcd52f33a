// libpq as this room calls it.
#pragma once

#include <libpq-fe.h>

namespace depcalc {

/// The functions of libpq that are used. Nothing links the library: who opens no company on a
/// server neither needs nor loads it. Tests put functions that fail in the place of these.
struct Libpq {
  decltype(&::PQconninfoParse) parse = nullptr;
  decltype(&::PQconninfoFree) freeOptions = nullptr;
  decltype(&::PQfreemem) freeMemory = nullptr;
  decltype(&::PQconnectdbParams) connect = nullptr;
  decltype(&::PQfinish) finish = nullptr;
  decltype(&::PQstatus) status = nullptr;
  decltype(&::PQerrorMessage) errorMessage = nullptr;
  decltype(&::PQconnectionNeedsPassword) needsPassword = nullptr;
  decltype(&::PQbackendPID) backendPid = nullptr;
  decltype(&::PQsetNoticeProcessor) setNoticeProcessor = nullptr;
  decltype(&::PQexecParams) execute = nullptr;
  decltype(&::PQresultStatus) resultStatus = nullptr;
  decltype(&::PQresultErrorField) errorField = nullptr;
  decltype(&::PQntuples) rows = nullptr;
  decltype(&::PQgetisnull) isNull = nullptr;
  decltype(&::PQgetvalue) value = nullptr;
  decltype(&::PQgetlength) length = nullptr;
  decltype(&::PQclear) clear = nullptr;
};

/// Loads the library, which then stays. Throws a FileTrouble where it is not installed.
Libpq loadedLibpq();

}  // namespace depcalc
