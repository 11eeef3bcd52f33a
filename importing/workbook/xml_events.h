// An XML text, element by element.
#pragma once

#include <string>
#include <string_view>

namespace depcalc {

/// The attributes of an element.
class XmlAttributes {
 public:
  explicit XmlAttributes(const char* const* pairs) : pairs_(pairs) {}

  /// "" where there is none of this name, whatever stands before its colon.
  [[nodiscard]] std::string_view operator[](std::string_view name) const;

 private:
  const char* const* pairs_;  ///< names and values, up to a null pointer
};

/// Hears of an XML text. Names come without what stands before their colon.
class XmlListener {
 public:
  virtual ~XmlListener() = default;
  virtual void begins(std::string_view element, const XmlAttributes& attributes) = 0;
  virtual void ends(std::string_view element) = 0;
  virtual void text(std::string_view text) = 0;
};

/// Whether `xml` is well formed; `listener` has then heard all of it.
bool readXml(std::string_view xml, XmlListener& listener);

}  // namespace depcalc
