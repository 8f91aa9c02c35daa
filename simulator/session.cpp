// The simulated objects' common entry: counting, faults, member lookup and argument checks; Photoshop's refusals.
#include "simulator/session.h"

#include "platform/text.h"

namespace ostrel::sim {

namespace {
// Photoshop's wording of a refused Action Manager call and of a missing element of the object model.
constexpr wchar_t kGeneralError[] =
    L"General Photoshop error occurred. This functionality may not be available in this version of Photoshop.";
constexpr wchar_t kNoSuchElementEnglish[] = L"No such element";
constexpr wchar_t kNoSuchElementChinese[] = L"没有这种元素";
}  // namespace

void ThrowNotAvailable(const Session& session, const std::wstring& what) {
  (void)session;
  throw AutomationError(kDispEException,
                        Format(L"%s\n- The object \u201c%s\u201d is not currently available.", kGeneralError, what));
}

void ThrowNoSuchElement(const Session& session) {
  throw AutomationError(kDispEBadIndex,
                        session.state.language == L"zh_CN" ? kNoSuchElementChinese : kNoSuchElementEnglish);
}

void ThrowGeneralError(const std::wstring& detail) {
  throw AutomationError(kDispEException, Format(L"%s\n- %s", kGeneralError, detail));
}

SimObject::SimObject(std::shared_ptr<Session> session, const char* kind)
    : m_session(std::move(session)), m_kind(kind) {
  m_session->accounting.ObjectBorn();
}

SimObject::~SimObject() { m_session->accounting.ObjectDied(); }

Variant SimObject::Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) {
  const Found member = Lookup(dispId, kind);
  m_session->accounting.OnCall(member.name ? member.name : "(unknown member)", kDispEException);
  if (!member.name) throw AutomationError(kDispENotFound, L"Member not found.");
  const auto count = static_cast<int>(args.size());
  if (count < member.minArgs || count > member.maxArgs) {
    throw AutomationError(kDispEBadParamCount, L"Invalid number of parameters.");
  }
  return Call(dispId, kind, args);
}

int32_t ArgI4(std::span<const Variant> args, size_t i) { return args[i].AsI4(); }

std::wstring ArgBstr(std::span<const Variant> args, size_t i) { return args[i].AsBstr(); }

bool ArgBool(std::span<const Variant> args, size_t i) { return args[i].AsBool(); }

int32_t ArgPosition(std::span<const Variant> args, size_t i) {
  const VarType type = args[i].type();
  if (type != VarType::kI2 && type != VarType::kI4) throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
  return args[i].AsI4();
}

}  // namespace ostrel::sim
