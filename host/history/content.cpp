#include "host/history/content.h"

#include "host/stored/digest.h"
#include "host/stored/record_text.h"
#include "host/table_texts.h"

namespace depcalc {
namespace {

/// Calls `take` with index and text of every record.
template <typename Take>
void forEachRecord(HostCompanyFile& file, const FollowedTable& followed, Take take) {
  const auto table = file.OpenTable(followed.name);
  std::int32_t left = table->Count();
  for (std::int32_t i = 0; left > 0 && i <= INT16_MAX; ++i) {
    const auto index = static_cast<std::int16_t>(i);
    if (!table->Exists(index)) continue;
    take(index, recordTextIn(*table, index));
    --left;
  }
}

}  // namespace

std::string recordTextIn(HostTable& table, std::int16_t index) {
  if (const auto* const texts = dynamic_cast<const TableTexts*>(&table)) {
    if (auto text = texts->recordText(index)) return *std::move(text);
  }
  const auto record = table.Item(index);
  const HostFields& fields = record->Fields();
  RecordValues::Entries entries;
  for (std::string& name : fields.names()) {
    StoredValue value = fields.GetValue(name);
    entries.push_back({std::move(name), std::move(value)});
  }
  return textOfRecord(RecordValues(std::move(entries)));
}

Content contentOf(HostCompanyFile& file, const CompanyInfo& info,
                  const std::vector<FollowedTable>& tables) {
  Content content{info, {}};
  for (const FollowedTable& followed : tables) {
    RecordTexts& texts = content.tables.emplace_back();
    forEachRecord(file, followed, [&](std::int16_t index, std::string text) {
      texts.emplace_hint(texts.end(), index, std::move(text));
    });
  }
  return content;
}

std::uint64_t digestOfRecord(std::size_t table, std::int16_t index, std::string_view text) {
  constexpr std::uint64_t records_per_table = 65'536;
  return digestOf(text, (table + 1) * records_per_table + static_cast<std::uint64_t>(index));
}

std::uint64_t digestOfInfo(const CompanyInfo& info) {
  return digestOf(
      info.name + '\n' + std::to_string(info.first_month) + (info.multi_user ? 'm' : 's'), 0);
}

std::uint64_t digestOfState(HostCompanyFile& file, const CompanyInfo& info,
                            const std::vector<FollowedTable>& tables) {
  std::uint64_t digest = digestOfInfo(info);
  for (std::size_t table = 0; table < tables.size(); ++table) {
    forEachRecord(file, tables[table], [&](std::int16_t index, const std::string& text) {
      if (tables[table].counts(index)) digest += digestOfRecord(table, index, text);
    });
  }
  return digest;
}

std::uint64_t digestOfState(const Content& content, const std::vector<FollowedTable>& tables) {
  std::uint64_t digest = digestOfInfo(content.info);
  for (std::size_t table = 0; table < tables.size(); ++table) {
    for (const auto& [index, text] : content.tables.at(table)) {
      if (tables[table].counts(index)) digest += digestOfRecord(table, index, text);
    }
  }
  return digest;
}

}  // namespace depcalc
