#include "windows/ole/screen_events.h"

#include <algorithm>
#include <vector>

#include "windows/com/com_text.h"
#include "windows/com/variant_value.h"
#include "windows/ole/event_arguments.h"

namespace depcalc::windows {

void EventOutlet::raise(DISPID member, std::initializer_list<VARIANTARG> arguments) const {
  if (point_ == nullptr || frozen_ > 0) return;
  std::vector<VARIANTARG> backwards(arguments);
  std::reverse(backwards.begin(), backwards.end());
  DISPPARAMS given{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
  const ComPtr<ConnectionPoint> point = point_;  // a sink may end who raises this
  point->raise(member, given);
}

void EventOutlet::raiseText(DISPID member, const std::string& text) const {
  Variant argument;
  V_BSTR(&argument.get()) = newBstr(text);
  V_VT(&argument.get()) = VT_BSTR;
  raise(member, {argument.get()});
}

void EventOutlet::raiseTextReference(DISPID member, const std::string& text) const {
  TextReference reference(text);
  raise(member, {reference.argument()});
}

void EntryOutlet::GetCalcDep(CalculateDepPtr& myCalcDep, Date& myFYEnd) {
  RecordReference record(myCalcDep);
  DateReference fiscal_year_end(myFYEnd);
  raise(1, {record.argument(), fiscal_year_end.argument()});
  myCalcDep = record.take();
  myFYEnd = fiscal_year_end.take();
}

void EntryOutlet::CheckMe(bool& myChanged) {
  FlagReference changed(myChanged);
  raise(4, {changed.argument()});
  myChanged = changed.take();
}

void ComparisonOutlet::GetCalcDep(CalculateDepPtr& myCalcDep) {
  RecordReference record(myCalcDep);
  raise(1, {record.argument()});
  myCalcDep = record.take();
}

void RegisterOutlet::GetCalcDepAll(CalculateDepArray& myCalcDep, std::int16_t& myStartYr,
                                   double& myNumYrs, std::int16_t& myNumAssets) {
  RecordsReference records(myCalcDep);
  raise(1, {records.argument(), integerReference(myStartYr), numberReference(myNumYrs),
            integerReference(myNumAssets)});
  myCalcDep = records.take();
}

void RegisterOutlet::SaveRecord(const CalculateDepPtr& myRecord) {
  RecordReference record(myRecord);
  Variant given;
  VARIANTARG reference = record.argument();
  VariantCopyInd(&given.get(), &reference);
  raise(3, {given.get()});
}

void RegisterOutlet::DeleteButtonClick(CalculateDepArray& myCalcDep, std::int16_t myIndex) {
  RecordsReference records(myCalcDep);
  raise(5, {records.argument(), integerArgument(myIndex)});
  myCalcDep = records.take();
}

void RegisterOutlet::GetCalcDep(CalculateDepPtr& myCalcDep) {
  RecordReference record(myCalcDep);
  raise(6, {record.argument()});
  myCalcDep = record.take();
}

void RegisterOutlet::GetStartDir(std::string& myStartDir) {
  TextReference directory(myStartDir);
  raise(7, {directory.argument()});
  myStartDir = directory.take();
}

void RegisterOutlet::ShowCover(bool showHide) {
  FlagReference shown(showHide);
  raise(9, {shown.argument()});
}

void PopupOutlet::GetHelpTopic(std::string& myHelpTopic) {
  TextReference topic(myHelpTopic);
  raise(2, {topic.argument()});
  myHelpTopic = topic.take();
}

}  // namespace depcalc::windows
