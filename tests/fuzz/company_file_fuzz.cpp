// Any bytes as changes to a company file, as a whole file or as the text of a record. A file is
// refused by its name or gives what was written into it, soon; a record's text keeps its values.
//
// The first byte says what the others are: 0 changes, each a place in three bytes, a count and so
// many bytes; 1 the same, and the file ends at the place of the last one; 2 a file; else a record.
#include <cstdint>
#include <ctime>
#include <fstream>
#include <string>

#include "host/sqlite/company_file.h"
#include "host/stored/record_text.h"
#include "tests/DepCalc/store_pair.h"
#include "tests/fuzz/property.h"
#include "tests/support/temporary_directory.h"

namespace depcalc {
namespace {

using testing_support::TableContent;

const SqliteCompanyFile::Options options{
    .today = [] { return Date::strict(2024, 2, 29); }, .writable = true, .vfs = {}};

/// A company file with two assets, and the place where changed ones are opened.
class Sample {
 public:
  Sample() {
    auto opened = SqliteCompanyFile::create(path(), {.name = "Acme"}, options);
    auto& file = std::get<std::shared_ptr<SqliteCompanyFile>>(opened);
    StoreState state;
    state.m_orvcf = file;
    AssetStore store(state, options.today);
    (void)store.open();
    for (const char* id : {"A", "B"}) {
      state.CurrentRecord = testing_support::newAsset({.id = id, .life = 3});
      std::int16_t index = 0;
      store.WriteData(index);
    }
    content = testing_support::contentOf(*file);
    file->close();
    std::ifstream stream(path(), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(stream), {});
  }

  [[nodiscard]] std::string path() const { return directory_.path() + "/acme.company"; }

  std::string bytes;
  TableContent content;

 private:
  testing_support::TemporaryDirectory directory_;
};

const Sample& sample() {
  static const Sample only;
  return only;
}

/// What the file holds; nothing where it was refused.
std::optional<TableContent> contentOfFile(const std::string& bytes) {
  const std::string path = sample().path();
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  const auto begun = std::clock();
  const auto opened = SqliteCompanyFile::open(path, options);
  std::optional<TableContent> content;
  if (const auto* trouble = std::get_if<FileTrouble>(&opened)) {
    mustHold(trouble->description().find(path) != std::string::npos, "a refusal names the file");
  } else {
    content = testing_support::contentOf(*std::get<std::shared_ptr<SqliteCompanyFile>>(opened));
  }
  mustHold(std::clock() - begun < 20 * CLOCKS_PER_SEC, "it is soon done");
  return content;
}

void checkChanges(std::string_view input, bool cut) {
  std::string bytes = sample().bytes;
  std::size_t place = bytes.size();
  while (input.size() >= 4) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(input[i]); };
    place = (byte(0) * 65'536U + byte(1) * 256U + byte(2)) % bytes.size();
    const std::string_view change = input.substr(4, byte(3));
    bytes.replace(place, std::min(change.size(), bytes.size() - place), change);
    input.remove_prefix(4 + change.size());
  }
  if (cut) bytes.resize(place);
  const auto content = contentOfFile(bytes);
  mustHold(!content || *content == sample().content, "what is read is what was written");
}

void checkRecord(std::string_view text) {
  std::string written;
  try {
    written = textOfRecord(recordOfText(text));
  } catch (const RuntimeError&) {
    return;
  }
  mustHold(textOfRecord(recordOfText(written)) == written, "a record's text keeps its values");
}

}  // namespace
}  // namespace depcalc

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view rest(reinterpret_cast<const char*>(data + 1), size - 1);
  if (data[0] <= 1) {
    depcalc::checkChanges(rest, data[0] == 1);
  } else if (data[0] == 2) {
    (void)depcalc::contentOfFile(std::string(rest));
  } else {
    depcalc::checkRecord(rest);
  }
  return 0;
}
