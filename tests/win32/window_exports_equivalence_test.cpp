// Every window locator export, taken from the export table (a new export can't be left out), run on each tree
// through the recorded model and through real windows built from it: the same window (mapped), the same answer,
// for every argument it is tried with and under each Photoshop version that the locator tells apart.
#include <windows.h>  // first: the library's headers then take HWND, tagRECT and tagSIZE from it

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "frame/export_bodies.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "platform/win32/win32_windows.h"
#include "real_windows.h"
#include "window_trees.h"

namespace ostrel {
namespace {

// One side of the comparison: the window tree the exports run on, how a recorded handle given as an argument
// becomes a handle of this side, and how a handle answered by this side is named (by its recorded handle).
struct Side {
  IWindowTree* tree = nullptr;
  std::function<WindowHandle(WindowHandle)> toSide;
  std::function<std::string(WindowHandle)> name;
};

HWND AsHwnd(WindowHandle window) { return reinterpret_cast<HWND>(static_cast<uintptr_t>(window)); }
WindowHandle FromHwnd(HWND window) { return static_cast<WindowHandle>(reinterpret_cast<uintptr_t>(window)); }

// The arguments an export is tried with, by parameter type. A handle stands as a recorded handle until a side
// turns it into its own; an out-list is made fresh for each call.
template <class P>
struct Arguments;
struct HandleSymbol {
  WindowHandle recorded = 0;
};
template <>
struct Arguments<HWND> {
  using Symbol = HandleSymbol;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>& handles) {
    std::vector<Symbol> samples;
    for (WindowHandle window : handles) samples.push_back(Symbol{window});
    samples.push_back(Symbol{0});
    return samples;
  }
  static HWND Make(const Side& side, Symbol symbol) { return AsHwnd(side.toSide(symbol.recorded)); }
};
template <>
struct Arguments<std::vector<HWND>&> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {0}; }
  static std::vector<HWND> Make(const Side&, Symbol) { return {reinterpret_cast<HWND>(1)}; }  // stale on entry
};
// Option ids: every id of the tool option catalogue, a gap in its numbering and one beyond it.
template <>
struct Arguments<unsigned int> {
  using Symbol = unsigned int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) {
    std::vector<Symbol> ids = {555, 5000};
#define OSTREL_TOOL_OPTION(id, owner, kind, key, unit) ids.push_back(static_cast<Symbol>(id));
#include "vocabulary/tool_options.def"
#undef OSTREL_TOOL_OPTION
    return ids;
  }
  static unsigned int Make(const Side&, Symbol id) { return id; }
};
template <>
struct Arguments<EnToolFeatures> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>& handles) {
    const auto ids = Arguments<unsigned int>::Samples(handles);
    return std::vector<Symbol>(ids.begin(), ids.end());
  }
  static EnToolFeatures Make(const Side&, Symbol id) { return static_cast<EnToolFeatures>(id); }
};
template <>
struct Arguments<std::wstring> {
  using Symbol = std::wstring;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {L"1", L"2", L"abc"}; }
  static std::wstring Make(const Side&, const Symbol& value) { return value; }
};

// Zooms typed into the zoom field: the last one stays in the field for the exports that read it afterwards.
template <>
struct Arguments<double> {
  using Symbol = double;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {33.333, 100.0}; }
  static double Make(const Side&, Symbol value) { return value; }
};
// Picture sizes: odd, even, larger than any canvas, none.
struct SizeSymbol {
  long cx = 0, cy = 0;
};
template <>
struct Arguments<tagSIZE> {
  using Symbol = SizeSymbol;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) {
    return {{999, 599}, {1000, 600}, {5000, 100}, {0, 0}};
  }
  static tagSIZE Make(const Side&, Symbol size) { return tagSIZE{size.cx, size.cy}; }
};
// The out-parameters of the dialog locators start with a value that must be overwritten or, where the export
// says so, kept; the refine edge controls are tried by every number and one on each side of the list.
template <>
struct Arguments<HWND&> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {0}; }
  static HWND Make(const Side&, Symbol) { return reinterpret_cast<HWND>(1); }
};
template <>
struct Arguments<std::wstring&> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {0}; }
  static std::wstring Make(const Side&, Symbol) { return L"kept"; }
};
template <>
struct Arguments<EnAdjustLayer&> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {0}; }
  static EnAdjustLayer Make(const Side&, Symbol) { return static_cast<EnAdjustLayer>(99); }
};
template <>
struct Arguments<int&> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) { return {0}; }
  static int Make(const Side&, Symbol) { return 99; }
};
template <>
struct Arguments<EnRefineEdge> {
  using Symbol = int;
  static std::vector<Symbol> Samples(const std::vector<WindowHandle>&) {
    std::vector<Symbol> controls;
    for (int control = -1; control <= 20; ++control) controls.push_back(control);
    return controls;
  }
  static EnRefineEdge Make(const Side&, Symbol control) { return static_cast<EnRefineEdge>(control); }
};

// Every combination of the samples of each parameter.
inline std::vector<std::tuple<>> Product() { return {{}}; }
template <class H, class... T>
std::vector<std::tuple<H, T...>> Product(const std::vector<H>& head, const std::vector<T>&... tail) {
  std::vector<std::tuple<H, T...>> all;
  for (const auto& rest : Product(tail...)) {
    for (const H& first : head) all.push_back(std::tuple_cat(std::make_tuple(first), rest));
  }
  return all;
}

// Answers as text, handles by their recorded number on both sides.
std::string Print(const Side& side, HWND window) { return side.name(FromHwnd(window)); }
std::string Print(const Side& side, const std::vector<HWND>& list) {
  std::string text = "[";
  for (HWND window : list) text += Print(side, window) + " ";
  return text + "]";
}
std::string Print(const Side&, const tagRECT& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}
std::string Print(const Side&, double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.6g", value);
  return text;
}
std::string Print(const Side&, const std::wstring& text) { return "\"" + ToUtf8(text) + "\""; }
template <class T>
  requires std::is_integral_v<T> || std::is_enum_v<T>
std::string Print(const Side&, T value) {
  return std::to_string(static_cast<long long>(value));
}
// An out-parameter (a non-const reference) as the export left it.
template <class P, class T>
std::string PrintOut(const Side& side, const T& argument) {
  if constexpr (std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>) {
    return " out " + Print(side, argument);
  }
  return "";
}

std::string ArgumentText(const HandleSymbol& window) { return "hwnd " + std::to_string(window.recorded); }
std::string ArgumentText(int value) { return std::to_string(value); }
std::string ArgumentText(unsigned int value) { return std::to_string(value); }
std::string ArgumentText(const std::wstring& value) { return "\"" + ToUtf8(value) + "\""; }
std::string ArgumentText(double value) { return Print(Side{}, value); }
std::string ArgumentText(const SizeSymbol& size) { return std::to_string(size.cx) + "x" + std::to_string(size.cy); }

// One export with one set of arguments: what it answers on a side.
struct Trial {
  std::string label;
  std::function<std::string(const Side&)> run;
};

template <class R, class... P>
void AddTrials(const char* name, R (*function)(P...) noexcept, const std::vector<WindowHandle>& handles,
               std::vector<Trial>& trials) {
  for (const auto& symbols : Product(Arguments<P>::Samples(handles)...)) {
    std::string label = name;
    std::apply([&](const auto&... symbol) { ((label += " " + ArgumentText(symbol)), ...); }, symbols);
    trials.push_back(Trial{label, [function, symbols](const Side& side) {
                             auto arguments = std::apply(
                                 [&](const auto&... symbol) {
                                   return std::tuple<std::remove_cvref_t<P>...>(Arguments<P>::Make(side, symbol)...);
                                 },
                                 symbols);
                             std::string answer;
                             if constexpr (std::is_void_v<R>) {
                               std::apply(function, arguments);
                             } else {
                               answer = Print(side, std::apply(function, arguments));
                             }
                             std::apply([&](const auto&... argument) { ((answer += PrintOut<P>(side, argument)), ...); },
                                        arguments);
                             return answer;
                           }});
  }
}

// Adds the trials of an export of the locator's family; the rows of other families are passed over without
// their parameter types being looked at.
template <bool kLocator>
struct TrialsOf {
  template <class Function>
  static void Add(const char*, Function, const std::vector<WindowHandle>&, std::vector<Trial>&) {}
};
template <>
struct TrialsOf<true> {
  template <class Function>
  static void Add(const char* name, Function function, const std::vector<WindowHandle>& handles,
                  std::vector<Trial>& trials) {
    AddTrials(name, function, handles, trials);
  }
};

// The trials of every export of the locator's family in the export table.
std::vector<Trial> LocatorTrials(const std::vector<WindowHandle>& handles) {
  std::vector<Trial> trials;
#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure)                                        \
  TrialsOf<std::string_view(#family) == "windows">::Add(#name, static_cast<R(*) parameters noexcept>(&name), \
                                                        handles, trials);
#include "frame/exports.def"
#undef OSTREL_EXPORT
  return trials;
}

// The host's parameters, counting how often they are asked.
struct CountingParameters final : IParameters {
  explicit CountingParameters(IParameters& inner) : m_inner(inner) {}
  std::wstring GetString(EnTallyKey key) override {
    ++reads;
    return m_inner.GetString(key);
  }
  int reads = 0;

 private:
  IParameters& m_inner;
};

// The versions the locator tells apart.
constexpr const wchar_t* kVersions[] = {L"Adobe Photoshop CC 2017", L"Adobe Photoshop 2020", L"Adobe Photoshop 2021"};

// How many trials by option id of one export that the model answers alike are also run on real windows.
constexpr size_t kComparisonsPerAnswer = 3;

TEST(WindowExportsEquivalenceTest, EveryLocatorExportGivesTheSameWindowThroughBothBackends) {
  test::WindowThread thread;
  const std::vector<test::NamedTree> trees = test::TreesToBuild();
  size_t compared = 0, exports = 0;
  for (const test::NamedTree& named : trees) {
    SCOPED_TRACE(named.name);
    RecordedWindows model(named.tree);
    test::RealWindows real(thread, named.tree);
    win32::Win32WindowTree live;
    const auto places = test::PlacesOf(named.tree);
    const auto recordedName = [&](WindowHandle window) -> std::string {
      if (window == 0) return "null";
      const auto place = places.find(window);
      return place == places.end() ? "unknown hwnd " + std::to_string(window) : place->second;
    };
    const Side modelSide{&model, [](WindowHandle window) { return window; }, recordedName};
    const Side liveSide{&live, [&](WindowHandle window) { return real.RealOf(window); },
                        [&](WindowHandle window) {
                          const auto recorded = real.RecordedOf(window);
                          return recorded ? recordedName(*recorded)
                                          : "a window not built from the tree (" + std::to_string(window) + ")";
                        }};
    const std::vector<Trial> trials = LocatorTrials(real.RecordedHandles());
    std::set<std::string> names;
    for (const Trial& trial : trials) names.insert(trial.label.substr(0, trial.label.find(' ')));
    exports = names.size();
    // Each trial runs on the model under every version. Real windows are asked once for all versions that the
    // model answers alike, and an export tried with every option id at most a few times for each answer the model
    // gives (a hit-test scan over real windows costs hundreds of window manager calls, and most ids give the same
    // window or none).
    std::vector<ProcessParameters> parameters(std::size(kVersions));
    for (size_t v = 0; v < std::size(kVersions); ++v) {
      parameters[v].Set(EnTallyKey::kPhotoshopVersionName, kVersions[v]);
    }
    std::map<std::string, size_t> timesCompared;  // export and model answer
    int mismatches = 0;
    for (const Trial& trial : trials) {
      // Under the other versions only when the answer under the first one asked for the version at all.
      std::vector<std::string> fromModel;
      for (ProcessParameters& version : parameters) {
        CountingParameters counted(version);
        {
          const ScopedPlatform platform({.windows = &model, .parameters = &counted});
          fromModel.push_back(trial.run(modelSide));
        }
        if (counted.reads == 0) break;
      }
      fromModel.resize(parameters.size(), fromModel.front());
      const size_t space = trial.label.find(' ');
      const std::string exportName = trial.label.substr(0, space);
      const bool byOptionId =
          space != std::string::npos && std::isdigit(static_cast<unsigned char>(trial.label[space + 1]));
      for (size_t v = 0; v < parameters.size(); ++v) {
        if (v > 0 && std::find(fromModel.begin(), fromModel.begin() + v, fromModel[v]) != fromModel.begin() + v) {
          continue;  // an answer already compared under an earlier version
        }
        if (byOptionId && timesCompared[exportName + " " + fromModel[v]]++ >= kComparisonsPerAnswer) continue;
        std::string fromReal;
        {
          const ScopedPlatform platform({.windows = &live, .parameters = &parameters[v]});
          fromReal = trial.run(liveSide);
        }
        ++compared;
        if (fromModel[v] == fromReal) continue;
        if (++mismatches <= 10) {
          ADD_FAILURE() << trial.label << " under " << ToUtf8(kVersions[v]) << ": the model gives " << fromModel[v]
                        << ", real windows " << fromReal;
        }
      }
    }
    EXPECT_EQ(mismatches, 0);
  }
  EXPECT_GE(exports, 60u);  // the locator's family: its rows can't all have gone missing unnoticed
  EXPECT_GT(compared, 0u);
}

}  // namespace
}  // namespace ostrel
