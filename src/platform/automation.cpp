// Automation values and failures.
#include "platform/automation.h"

#include <cmath>

#include "platform/text.h"

namespace ostrel {

AutomationError::AutomationError(int32_t code, std::wstring description)
    : std::runtime_error("automation failure " + ToUtf8(Format(L"0x%08x: %s", code, description))),
      m_code(code),
      m_description(std::move(description)) {}

Variant Variant::I2(int16_t value) {
  Variant v;
  v.m_type = VarType::kI2;
  v.m_int = value;
  return v;
}

Variant Variant::I4(int32_t value) {
  Variant v;
  v.m_type = VarType::kI4;
  v.m_int = value;
  return v;
}

Variant Variant::R8(double value) {
  Variant v;
  v.m_type = VarType::kR8;
  v.m_double = value;
  return v;
}

Variant Variant::Bstr(std::wstring value) {
  Variant v;
  v.m_type = VarType::kBstr;
  v.m_text = std::move(value);
  return v;
}

Variant Variant::Bool(bool value) {
  Variant v;
  v.m_type = VarType::kBool;
  v.m_int = value ? 1 : 0;
  return v;
}

Variant Variant::Dispatch(DispatchPtr value) {
  Variant v;
  v.m_type = VarType::kDispatch;
  v.m_dispatch = std::move(value);
  return v;
}

Variant Variant::Array(std::vector<Variant> items) {
  Variant v;
  v.m_type = VarType::kArray;
  v.m_items = std::move(items);
  return v;
}

namespace {

[[noreturn]] void ThrowTypeMismatch() { throw AutomationError(kDispETypeMismatch, L"Type mismatch."); }

}  // namespace

int32_t Variant::AsI4() const {
  switch (m_type) {
    case VarType::kI2:
    case VarType::kI4: return m_int;
    case VarType::kBool: return m_int ? -1 : 0;  // VARIANT_TRUE is -1
    case VarType::kR8:
      if (!std::isfinite(m_double) || m_double > 2147483647.0 || m_double < -2147483648.0) ThrowTypeMismatch();
      return static_cast<int32_t>(std::nearbyint(m_double));
    default: ThrowTypeMismatch();
  }
}

double Variant::AsR8() const {
  switch (m_type) {
    case VarType::kI2:
    case VarType::kI4: return m_int;
    case VarType::kR8: return m_double;
    case VarType::kBool: return m_int ? -1.0 : 0.0;
    default: ThrowTypeMismatch();
  }
}

bool Variant::AsBool() const {
  switch (m_type) {
    case VarType::kI2:
    case VarType::kI4:
    case VarType::kBool: return m_int != 0;
    case VarType::kR8: return m_double != 0;
    default: ThrowTypeMismatch();
  }
}

const std::wstring& Variant::AsBstr() const {
  if (m_type != VarType::kBstr) ThrowTypeMismatch();
  return m_text;
}

const DispatchPtr& Variant::AsDispatch() const {
  if (m_type != VarType::kDispatch) ThrowTypeMismatch();
  return m_dispatch;
}

const std::vector<Variant>& Variant::AsArray() const {
  if (m_type != VarType::kArray) ThrowTypeMismatch();
  return m_items;
}

}  // namespace ostrel
