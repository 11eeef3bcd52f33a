#include "importing/workbook/xml_events.h"

#include <expat.h>

#include <algorithm>
#include <memory>

namespace depcalc {
namespace {

std::string_view localName(std::string_view name) {
  const std::size_t colon = name.rfind(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

XmlListener& listenerOf(void* data) { return *static_cast<XmlListener*>(data); }

void XMLCALL heardBegin(void* data, const XML_Char* name, const XML_Char** attributes) {
  listenerOf(data).begins(localName(name), XmlAttributes(attributes));
}

void XMLCALL heardEnd(void* data, const XML_Char* name) { listenerOf(data).ends(localName(name)); }

void XMLCALL heardText(void* data, const XML_Char* text, int length) {
  listenerOf(data).text({text, static_cast<std::size_t>(length)});
}

}  // namespace

std::string_view XmlAttributes::operator[](std::string_view name) const {
  for (const char* const* pair = pairs_; *pair != nullptr; pair += 2) {
    if (localName(*pair) == name) return pair[1];
  }
  return {};
}

bool readXml(std::string_view xml, XmlListener& listener) {
  const std::unique_ptr<XML_ParserStruct, decltype(&::XML_ParserFree)> parser(
      ::XML_ParserCreate(nullptr), &::XML_ParserFree);
  if (parser == nullptr) return false;
  ::XML_SetUserData(parser.get(), &listener);
  ::XML_SetElementHandler(parser.get(), heardBegin, heardEnd);
  ::XML_SetCharacterDataHandler(parser.get(), heardText);
  return ::XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), 1) == XML_STATUS_OK;
}

}  // namespace depcalc
