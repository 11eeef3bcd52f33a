#include "host/record_storage.h"

#include <utility>

#include "host/storage_table.h"

namespace depcalc {

std::shared_ptr<HostTable> tableOver(std::shared_ptr<RecordStorage> storage) {
  return std::make_shared<StorageTable<RecordValues>>(std::move(storage));
}

}  // namespace depcalc
