// The Photoshop rows' answers, expanded from the export table.
#include "photoshop_rows.h"

#include <tuple>
#include <type_traits>

#include "calls.h"
#include "frame/export_bodies.h"

namespace ostrel::cli {
namespace {

template <class R, class... P, class Answer>
std::string Printed(R (*)(P...) noexcept, Answer answer) {
  std::tuple<std::remove_cvref_t<P>...> parameters{};
  if constexpr (std::is_void_v<R>) {
    return "null";
  } else {
    return RenderJson(ArgTraits<R>::ToJson(std::apply(answer, parameters)));
  }
}

}  // namespace

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-parameter"  // most answers don't use the parameters
#endif

const std::map<std::string, std::string>& UnconnectedAnswers() {
  static const std::map<std::string, std::string> answers = {
#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure)
#define OSTREL_PS_EXPORT(family, R, name, parameters, body, onFailure, unconnected) \
  {#name, Printed(static_cast<R(*) parameters noexcept>(&name),                     \
                  [] parameters -> R { return static_cast<R>(unconnected); })},
#include "frame/exports.def"
#undef OSTREL_EXPORT
#undef OSTREL_PS_EXPORT
  };
  return answers;
}

const std::map<std::string, std::string>& FailureDefaults() {
  static const std::map<std::string, std::string> defaults = {
#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure)
#define OSTREL_PS_EXPORT(family, R, name, parameters, body, onFailure, unconnected) \
  {#name, Printed(static_cast<R(*) parameters noexcept>(&name),                     \
                  [] parameters -> R { return static_cast<R>(onFailure); })},
#include "frame/exports.def"
#undef OSTREL_EXPORT
#undef OSTREL_PS_EXPORT
  };
  return defaults;
}

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

}  // namespace ostrel::cli
