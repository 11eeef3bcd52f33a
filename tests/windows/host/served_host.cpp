#include "tests/windows/host/served_host.h"

#include <iterator>
#include <utility>

#include "windows/com/com_text.h"
#include "windows/host/host_answers.h"
#include "windows/host/host_events.h"
#include "windows/host/stored_variant.h"

namespace depcalc::testing_support {
namespace {

using Microsoft::WRL::ComPtr;
using Members = std::vector<ServedMember>;

std::string textIn(const VARIANT* argument) { return storedValueOf(*argument).asText(); }
std::int16_t indexIn(const VARIANT* argument) {
  return static_cast<std::int16_t>(storedValueOf(*argument).asLong());
}

OwnedVariant nothing() { return {}; }

OwnedVariant longVariant(std::int32_t number) {
  OwnedVariant made;
  VARIANT& variant = *made.out();
  variant.vt = VT_I4;
  variant.lVal = number;
  return made;
}

OwnedVariant objectVariant(ComPtr<IDispatch> object) {
  OwnedVariant made;
  VARIANT& variant = *made.out();
  variant.vt = VT_DISPATCH;
  variant.pdispVal = object.Detach();
  return made;
}

OwnedVariant arrayVariant(std::vector<OwnedVariant> elements) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
  VARIANT* at = nullptr;
  SafeArrayAccessData(array, reinterpret_cast<void**>(&at));
  for (OwnedVariant& element : elements) *at++ = element.release();
  SafeArrayUnaccessData(array);
  OwnedVariant made;
  VARIANT& variant = *made.out();
  variant.vt = VT_ARRAY | VT_VARIANT;
  variant.parray = array;
  return made;
}

ComPtr<IDispatch> objectWith(Members members) {
  return ComPtr<IDispatch>(new ServedObject(std::move(members)));
}

ComPtr<IDispatch> servedFields(const std::shared_ptr<HostRecord>& record) {
  // As long as a client holds the fields, the record stays.
  HostFields& fields = record->Fields();
  return objectWith({
      {L"GetValue", 1,
       [record, &fields](const Arguments& a) { return variantOf(fields.GetValue(textIn(a[0]))); }},
      {L"SetValue", 2,
       [record, &fields](const Arguments& a) {
         fields.SetValue(textIn(a[0]), storedValueOf(*a[1]));
         return nothing();
       }},
      {L"Names", 0,
       [record, &fields](const Arguments&) {
         std::vector<OwnedVariant> names;
         for (const auto& name : fields.names())
           names.push_back(variantOf(StoredValue::text(name)));
         return arrayVariant(std::move(names));
       }},
  });
}

ComPtr<IDispatch> servedRecord(const std::shared_ptr<HostRecord>& record) {
  return objectWith({
      {L"BeginEdit", 0, [record](const Arguments&) { return longVariant(record->BeginEdit()); }},
      {L"Modified", 1,
       [record](const Arguments& a) {
         record->Modified(storedValueOf(*a[0]).asDouble() != 0.0);
         return nothing();
       },
       true},
      {L"Commit", 0,
       [record](const Arguments&) {
         record->Commit();
         return nothing();
       }},
      {L"Delete", 0,
       [record](const Arguments&) {
         record->Delete();
         return nothing();
       }},
      {L"Fields", 0, [record](const Arguments&) { return objectVariant(servedFields(record)); }},
  });
}

ComPtr<IDispatch> servedTable(const std::shared_ptr<HostTable>& table) {
  return objectWith({
      {L"Count", 0, [table](const Arguments&) { return longVariant(table->Count()); }},
      {L"Exists", 1,
       [table](const Arguments& a) { return booleanVariant(table->Exists(indexIn(a[0]))); }},
      {L"Item", 1,
       [table](const Arguments& a) {
         return objectVariant(servedRecord(table->Item(indexIn(a[0]))));
       }},
      {L"Add", 1,
       [table](const Arguments& a) {
         return objectVariant(servedRecord(table->Add(indexIn(a[0]))));
       }},
  });
}

LONG palette_count = 0;

OwnedVariant colours(const HostPicture& picture) {
  InterlockedIncrement(&palette_count);
  std::vector<OwnedVariant> elements;
  for (const std::uint32_t colour : picture.colours) {
    elements.push_back(longVariant(static_cast<std::int32_t>(colour)));
  }
  return arrayVariant(std::move(elements));
}

class ServedFile final : public ServedObject, private HostCompanyFileEvents {
 public:
  explicit ServedFile(const std::shared_ptr<HostCompanyFile>& file)
      : ServedObject(membersOf(file), &company_file_closing.source), file_(file) {}
  ~ServedFile() override { file_->unadvise(*this); }

 private:
  static Members membersOf(const std::shared_ptr<HostCompanyFile>& file) {
    return {
        {L"OpenTable", 1,
         [file](const Arguments& a) {
           return objectVariant(servedTable(file->OpenTable(textIn(a[0]))));
         }},
        {L"FiscalYearStart", 0,
         [file](const Arguments&) {
           return variantOf(StoredValue::date(file->FiscalYearStart()));
         }},
        {L"IsMultiUser", 0,
         [file](const Arguments&) { return booleanVariant(file->IsMultiUser()); }},
        {L"PalettePicture", 0,
         [file](const Arguments&) { return colours(*file->PalettePicture()); }},
    };
  }
  void listenedTo(bool listened) override {
    listened ? file_->advise(*this) : file_->unadvise(*this);
  }
  void CompanyFileClosing() override { raise(); }

  std::shared_ptr<HostCompanyFile> file_;
};

class ServedApplication final : public ServedObject, private HostApplicationEvents {
 public:
  ServedApplication(const std::shared_ptr<HostApplication>& application, Members more)
      : ServedObject(membersOf(application, std::move(more)), &company_file_opened.source),
        application_(application) {}
  ~ServedApplication() override { application_->unadvise(*this); }

 private:
  static Members membersOf(const std::shared_ptr<HostApplication>& application, Members more) {
    Members members{
        {L"IsCompanyFileOpen", 0,
         [application](const Arguments&) {
           return booleanVariant(application->IsCompanyFileOpen());
         }},
        {L"CompanyFile", 0,
         [application](const Arguments&) {
           const auto file = application->CompanyFile();
           return objectVariant(file != nullptr ? servedCompanyFile(file) : nullptr);
         }},
        {L"StartDirectory", 0,
         [application](const Arguments&) {
           return variantOf(StoredValue::text(application->StartDirectory()));
         }},
    };
    std::move(more.begin(), more.end(), std::back_inserter(members));
    return members;
  }
  void listenedTo(bool listened) override {
    listened ? application_->advise(*this) : application_->unadvise(*this);
  }
  void CompanyFileOpened() override { raise(); }

  std::shared_ptr<HostApplication> application_;
};

}  // namespace

LONG servedPaletteCount() { return palette_count; }

ComPtr<IDispatch> servedApplication(std::shared_ptr<HostApplication> application,
                                    std::vector<ServedMember> more) {
  return ComPtr<IDispatch>(new ServedApplication(application, std::move(more)));
}

ComPtr<IDispatch> servedCompanyFile(std::shared_ptr<HostCompanyFile> file) {
  return ComPtr<IDispatch>(new ServedFile(file));
}

}  // namespace depcalc::testing_support
