// The server's headers, in the order that they ask for.
#pragma once

extern "C" {
#include <postgres.h>
// The first one comes before all others.
#include <access/htup_details.h>
#include <catalog/pg_enum.h>
#include <catalog/pg_type_d.h>
#include <fmgr.h>
#include <funcapi.h>
#include <miscadmin.h>
#include <utils/array.h>
#include <utils/builtins.h>
#include <utils/date.h>
#include <utils/numeric.h>
#include <utils/syscache.h>
}
