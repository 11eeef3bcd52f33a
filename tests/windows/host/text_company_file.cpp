#include "tests/windows/host/text_company_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <utility>

#include "host/record_storage.h"
#include "host/stored/record_text.h"
#include "values/runtime_error.h"

namespace depcalc::testing_support {
namespace {

RuntimeError pathError() { return {75, "Path/File access error"}; }

}  // namespace

/// What the file's tables share; they may outlive the file object.
class TextCompanyFile::Contents {
 public:
  using Table = std::map<std::int16_t, RecordValues>;

  explicit Contents(std::string path) : path_(std::move(path)) {
    std::ifstream file(path_, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
      const std::size_t tab = line.find('\t');
      const RecordValues place = recordOfText(line.substr(0, tab));
      tables_[place.find("Table")->asText()]
             [static_cast<std::int16_t>(place.find("Index")->asLong())] =
                 recordOfText(line.substr(tab + 1));
    }
    if (file.bad()) throw pathError();
  }

  Table& table(const std::string& name) {
    if (!open) throw RuntimeError::objectNotSet();
    return tables_[name];
  }

  void write() const {
    const std::string fresh = path_ + ".new";
    {
      std::ofstream file(fresh, std::ios::binary);
      for (const auto& [name, table] : tables_) {
        for (const auto& [index, values] : table) {
          RecordValues place;
          place.set("Table", StoredValue::text(name));
          place.set("Index", StoredValue::integer(index));
          file << textOfRecord(place) << '\t' << textOfRecord(values) << '\n';
        }
      }
      if (!file.flush()) throw pathError();
    }
    std::error_code error;
    std::filesystem::rename(fresh, path_, error);
    if (error) throw pathError();
  }

  bool open = true;

 private:
  std::string path_;
  std::map<std::string, Table> tables_;
};

class TextCompanyFile::Storage final : public RecordStorage {
 public:
  Storage(std::shared_ptr<Contents> contents, std::string name)
      : contents_(std::move(contents)), name_(std::move(name)) {}

  [[nodiscard]] std::int32_t count() const override {
    return static_cast<std::int32_t>(table().size());
  }
  [[nodiscard]] bool has(std::int16_t index) const override { return table().contains(index); }
  [[nodiscard]] RecordValues load(std::int16_t index) const override { return table().at(index); }
  void save(std::int16_t index, RecordValues values) override {
    table()[index] = std::move(values);
    contents_->write();
  }
  void remove(std::int16_t index) override {
    table().erase(index);
    contents_->write();
  }

 private:
  [[nodiscard]] Contents::Table& table() const { return contents_->table(name_); }

  std::shared_ptr<Contents> contents_;
  std::string name_;
};

TextCompanyFile::TextCompanyFile(std::string path, Date fiscal_year_start)
    : contents_(std::make_shared<Contents>(std::move(path))),
      fiscal_year_start_(fiscal_year_start) {}

TextCompanyFile::~TextCompanyFile() = default;

std::shared_ptr<HostTable> TextCompanyFile::OpenTable(std::string_view name) {
  if (!contents_->open) throw RuntimeError::objectNotSet();
  if (name.empty()) throw RuntimeError::invalidCall();
  return tableOver(std::make_shared<Storage>(contents_, std::string(name)));
}

Date TextCompanyFile::FiscalYearStart() const {
  if (!contents_->open) throw RuntimeError::objectNotSet();
  return fiscal_year_start_;
}

bool TextCompanyFile::IsMultiUser() const {
  if (!contents_->open) throw RuntimeError::objectNotSet();
  return false;
}

std::shared_ptr<const HostPicture> TextCompanyFile::PalettePicture() const {
  if (!contents_->open) throw RuntimeError::objectNotSet();
  return std::make_shared<const HostPicture>();
}

void TextCompanyFile::close() {
  if (!contents_->open) return;
  listeners_.raise(&HostCompanyFileEvents::CompanyFileClosing);
  contents_->open = false;
}

}  // namespace depcalc::testing_support
