// The row TF: setting one option of the current tool. The option's kind picks the sentence; the texts that fill
// it are the option's name, its value as recorded, the value's name or the option's unit.
#include <optional>
#include <string_view>
#include <vector>

#include "script/checked_parse.h"
#include "ostrel/filters.h"
#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/fixed_list.h"
#include "vocabulary/tool_option_catalogue.h"
#include "vocabulary/tool_option_names.h"

namespace ostrel {
namespace {

// Which values R a sentence takes, R read as a whole number.
enum When { kAnyValue, kValueIsOne, kValueIsNotOne, kValueIsZero, kValueIsNotZero };

// A text of a sentence: a literal or one of the words of the line.
enum Word {
  kLiteral,
  kName,               // N, the option's name (by its value for some options)
  kValueName,          // V, the value's name
  kUnit,               // U, the option's unit
  kValue,              // R, the value as recorded
  kCropOverlayName,    // the crop overlay R names
  kFontAntiAliasName,  // the anti-aliasing R names
};

struct Text {
  Word word = kLiteral;
  const wchar_t* szLiteral = L"";
  constexpr Text() = default;
  constexpr Text(const wchar_t* literal) : szLiteral(literal) {}
  constexpr Text(Word w) : word(w) {}
};

struct Sentence {
  int nKind;
  When when;
  Text title;
  const wchar_t* szDetail;
  FixedList<Text, 3> places;
};

constexpr Sentence kSentences[] = {
#define OSTREL_TF_SENTENCE(kind, when, title, detail, ...) {kind, when, title, detail, {__VA_ARGS__}},
#include "script/tool_feature_sentences.def"
};

// The line's option id I, its value R and the option's name N, read in this order. The names that a sentence
// shows are kept once handed to NamedByLookup, so that a name shown twice counts once for a checker.
struct OptionLine {
  int nId;
  std::wstring strValue;
  std::wstring strName;
  std::optional<std::wstring> optShownName;
  std::optional<std::wstring> optShownValueName;
};

bool Takes(When when, std::wstring_view value) noexcept {
  const int number = WToI(value);
  switch (when) {
    case kAnyValue: return true;
    case kValueIsOne: return number == 1;
    case kValueIsNotOne: return number != 1;
    case kValueIsZero: return number == 0;
    case kValueIsNotZero: return number != 0;
  }
  return false;
}

// The sentence of the kind for this value, or nullptr where the kind has none.
const Sentence* SentenceOf(int kind, std::wstring_view value) noexcept {
  for (const Sentence& sentence : kSentences) {
    if (sentence.nKind == kind && Takes(sentence.when, value)) return &sentence;
  }
  return nullptr;
}

// The words V and U are looked up only where a sentence shows them. Names from a vocabulary pass through
// NamedByLookup, so that a checker sees them come back empty; the unit and the value are no names.
std::wstring Resolve(const Text& text, OptionLine& line) {
  switch (text.word) {
    case kLiteral: return text.szLiteral;
    case kName:
      if (!line.optShownName) line.optShownName = NamedByLookup(line.strName);
      return *line.optShownName;
    case kValueName:
      if (!line.optShownValueName) {
        line.optShownValueName = NamedByLookup(ToolOptionValueName(line.nId, line.strValue));
      }
      return *line.optShownValueName;
    case kUnit: return ToolOptionUnit(line.nId);
    case kValue: return line.strValue;
    case kCropOverlayName:
      return NamedByLookup(Ostrel_CropOverlayToName(EnCropOverlayOption{WToI(line.strValue)}));
    case kFontAntiAliasName:
      return NamedByLookup(Ostrel_FontAntiAliasToName(EnFontAntiAlias{WToI(line.strValue)}));
  }
  return {};
}

std::wstring FormatSentence(const Sentence& sentence, OptionLine& line) {
  std::vector<std::wstring> texts;
  for (const Text& place : sentence.places) texts.push_back(Resolve(place, line));
  const std::vector<FormatArg> args(texts.begin(), texts.end());
  return FormatArgs(sentence.szDetail, args.data(), args.size());
}

}  // namespace

// TF,<EnToolFeatures>[,<value>]. A kind without a sentence, or an id that is no option, gives 0.
int ParseToolFeaturesRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  OptionLine line{ItemInt(items, 1), {}, {}, {}, {}};
  const int kind = ToolOptionKind(line.nId);
  line.strValue = ItemText(items, 2);
  line.strName = ToolOptionName(line.nId, line.strValue);
  const Sentence* sentence = SentenceOf(kind, line.strValue);
  if (!sentence) return 0;
  std::wstring title = Resolve(sentence->title, line);
  return SetScript(script, std::move(title), FormatSentence(*sentence, line));
}

}  // namespace ostrel
