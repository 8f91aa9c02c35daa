// The readers of numbers and colours in text: _wtoi and _wtof as the Windows runtime reads them, and colour text
// of six hexadecimal digits, with the properties their callers rely on.
#include <cstdint>
#include <cwchar>
#include <cwctype>

#include "fuzz_support.h"
#include "ostrel/swatches.h"
#include "platform/color_text.h"

namespace {

bool IsHexDigit(wchar_t c) {
  return (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F');
}

void CheckColorText(const std::wstring& text) {
  const std::uint32_t color = ostrel::StringToColor(text);
  bool sixHexDigits = text.size() == 6;
  for (const wchar_t c : text) sixHexDigits = sixHexDigits && IsHexDigit(c);
  if (!sixHexDigits) {
    if (color != ostrel::kNoColor) ostrel::fuzz::Broken("colour text that isn't six hexadecimal digits read");
    return;
  }
  if (color > 0xFFFFFF) ostrel::fuzz::Broken("a colour with a high byte");
  std::wstring lower = text;
  for (wchar_t& c : lower) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  if (ostrel::ColorToString(color) != lower) ostrel::fuzz::Broken("colour text doesn't round-trip");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostrel::fuzz::InitLibraryOnce();
  const std::wstring text = ostrel::fuzz::Text(ostrel::fuzz::Bytes(data, size));
  const int whole = ostrel::WToI(text);
  if (ostrel::WToI(std::to_wstring(whole)) != whole) ostrel::fuzz::Broken("_wtoi of its own digits differs");
  const double decimal = ostrel::WToF(text);
  wchar_t digits[64];
  std::swprintf(digits, 64, L"%.17g", decimal);
  if (decimal == decimal && ostrel::WToF(digits) != decimal) {
    ostrel::fuzz::Broken("_wtof of its own digits differs");
  }
  CheckColorText(text);
  const std::uint32_t named = Ostrel_PureColorNameToColor(text);
  if (named != ostrel::kNoColor && Ostrel_PureColorToName(named).empty()) {
    ostrel::fuzz::Broken("a swatch name gave a colour without a name");
  }
  return 0;
}
