// The registration of every export for `ostrel call`, generated from the rows of the export table: one entry per
// row, bound by its exact signature (so overloads are told apart), with the parameter names of the row.
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "calls.h"
#include "ostrel/OstrelCore.h"

namespace ostrel::cli {

std::vector<std::string> ParameterNames(std::string_view parameters) {
  std::vector<std::string> names;
  if (parameters.size() >= 2 && parameters.front() == '(' && parameters.back() == ')') {
    parameters = parameters.substr(1, parameters.size() - 2);
  }
  int depth = 0;  // inside <...>: a comma there belongs to a type
  size_t start = 0;
  for (size_t i = 0; i <= parameters.size(); ++i) {
    const char c = i < parameters.size() ? parameters[i] : ',';
    if (c == '<') ++depth;
    if (c == '>') --depth;
    if (c != ',' || depth != 0) continue;
    std::string_view declaration = parameters.substr(start, i - start);
    start = i + 1;
    size_t end = declaration.size();
    while (end > 0 && declaration[end - 1] == ' ') --end;
    size_t begin = end;
    while (begin > 0 && (std::isalnum(static_cast<unsigned char>(declaration[begin - 1])) ||
                         declaration[begin - 1] == '_')) {
      --begin;
    }
    if (begin < end) names.emplace_back(declaration.substr(begin, end - begin));
  }
  return names;
}

static CallEntry TalkingToPhotoshop(CallEntry entry) {
  entry.talksToPhotoshop = true;
  return entry;
}

const std::vector<CallEntry>& AllCalls() {
  static const std::vector<CallEntry> calls = {
#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure) \
  MakeCall(#name, static_cast<R(*) parameters noexcept>(&name), ParameterNames(#parameters)),
#define OSTREL_PS_EXPORT(family, R, name, parameters, body, onFailure, unconnected) \
  TalkingToPhotoshop(MakeCall(#name, static_cast<R(*) parameters noexcept>(&name), ParameterNames(#parameters))),
#include "frame/exports.def"
#undef OSTREL_EXPORT
#undef OSTREL_PS_EXPORT
  };
  return calls;
}

}  // namespace ostrel::cli
