// Automation as the library sees it: late-bound calls by dispatch id on objects of an automation server
// (Photoshop's COM objects on Windows, the simulated Photoshop elsewhere), with the variant kinds they use.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace ostrel {

class IAutomationObject;
using DispatchPtr = std::shared_ptr<IAutomationObject>;

// Variant types by their automation numbers. kArray is an array of variants (what `bounds` gives).
enum class VarType : uint16_t {
  kEmpty = 0,
  kI2 = 2,
  kI4 = 3,
  kR8 = 5,
  kBstr = 8,
  kDispatch = 9,
  kBool = 11,
  kVariant = 12,
  kArray = 0x200C,
};

// An automation value. Only the member that its type names is meaningful.
class Variant {
 public:
  Variant() = default;
  static Variant I2(int16_t value);
  static Variant I4(int32_t value);
  static Variant R8(double value);
  static Variant Bstr(std::wstring value);
  static Variant Bool(bool value);
  static Variant Dispatch(DispatchPtr value);
  static Variant Array(std::vector<Variant> items);

  VarType type() const noexcept { return m_type; }
  bool IsEmpty() const noexcept { return m_type == VarType::kEmpty; }

  // Typed reads with the coercions automation applies between numbers; a value of another kind throws
  // AutomationError (type mismatch), as a coercion failure would.
  int32_t AsI4() const;
  double AsR8() const;
  bool AsBool() const;
  const std::wstring& AsBstr() const;
  const DispatchPtr& AsDispatch() const;
  const std::vector<Variant>& AsArray() const;

 private:
  VarType m_type = VarType::kEmpty;
  int32_t m_int = 0;
  double m_double = 0;
  std::wstring m_text;
  DispatchPtr m_dispatch;
  std::vector<Variant> m_items;
};

// Invoke kinds: a method call, a property get, a property put.
enum class InvokeKind : uint16_t { kMethod = 1, kPropertyGet = 2, kPropertyPut = 4 };

// Well-known result codes of automation failures.
inline constexpr int32_t kSOk = 0;
inline constexpr int32_t kDispENotFound = static_cast<int32_t>(0x80020003);    // DISP_E_MEMBERNOTFOUND
inline constexpr int32_t kDispETypeMismatch = static_cast<int32_t>(0x80020005);
inline constexpr int32_t kDispEBadParamCount = static_cast<int32_t>(0x8002000E);
inline constexpr int32_t kDispEException = static_cast<int32_t>(0x80020009);   // the server's own error
inline constexpr int32_t kCoEClassString = static_cast<int32_t>(0x800401F3);   // ProgID not registered
inline constexpr int32_t kCoEServerExecFailure = static_cast<int32_t>(0x80080005);
inline constexpr int32_t kEFail = static_cast<int32_t>(0x80004005);

// The failure of an automation call or of creating an automation object: the family of exceptions that every
// reading or commanding export catches at its end and turns into its default.
class AutomationError : public std::runtime_error {
 public:
  AutomationError(int32_t code, std::wstring description);
  int32_t code() const noexcept { return m_code; }
  const std::wstring& description() const noexcept { return m_description; }

 private:
  int32_t m_code;
  std::wstring m_description;
};

// One object of the automation server. Holding a DispatchPtr holds a reference; the last one to go releases the
// object. Invoke throws AutomationError when the server or the transport reports a failure.
class IAutomationObject {
 public:
  virtual ~IAutomationObject() = default;
  virtual Variant Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) = 0;
};

// The automation runtime: initialization of the calling thread and creation of objects by ProgID.
class IAutomation {
 public:
  virtual ~IAutomation() = default;
  // Initializes automation for the calling thread: a thread without an apartment joins the multithreaded one, a
  // thread that has one keeps it (COM answers RPC_E_CHANGED_MODE then). Gives the runtime's result code.
  virtual int32_t Initialize() = 0;
  // Creates the object registered under progId, or throws AutomationError with the creation's result code.
  virtual DispatchPtr Create(const std::wstring& progId) = 0;
  // The system's text for a result code, without a line end.
  virtual std::wstring ErrorMessage(int32_t code) = 0;
};

}  // namespace ostrel
