#include "platform/windows/automation/variant.h"

#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

BSTR ToBstr(StringView text) {
  return SysAllocStringLen(WideData(text), static_cast<UINT>(text.size()));
}

/// Fills a freshly initialised VARIANT from each kind of argument; false when memory runs out.
struct Filler {
  VARIANT& value;

  bool operator()(std::monostate) const { return true; }
  bool operator()(bool flag) const {
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return true;
  }
  bool operator()(std::int32_t number) const {
    value.vt = VT_I4;
    value.lVal = number;
    return true;
  }
  bool operator()(const String& text) const {
    value.vt = VT_BSTR;
    value.bstrVal = ToBstr(text);
    return value.bstrVal != nullptr;
  }
  bool operator()(AutomationObject* object) const {
    value.vt = VT_DISPATCH;
    value.pdispVal = UnwrapObject(*object);
    value.pdispVal->AddRef();
    return true;
  }
  bool operator()(const AutomationTable& table) const {
    const std::size_t rows = table.columns == 0 ? 0 : table.cells.size() / table.columns;
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(rows), 0},
                                {static_cast<ULONG>(table.columns), 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_BSTR, 2, bounds);
    if (array == nullptr) return false;
    value.vt = VT_ARRAY | VT_BSTR;
    value.parray = array;  // cleared, half filled or not, with the VARIANT
    void* data = nullptr;
    if (FAILED(SafeArrayAccessData(array, &data))) return false;
    const bool complete = FillCells(table, rows, static_cast<BSTR*>(data));
    SafeArrayUnaccessData(array);
    return complete;
  }

  /// The array runs down its first dimension first, the table along its rows.
  static bool FillCells(const AutomationTable& table, std::size_t rows, BSTR* cells) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      for (std::size_t row = 0; row < rows; ++row) {
        BSTR& cell = cells[column * rows + row];
        cell = ToBstr(table.cells[row * table.columns + column]);
        if (cell == nullptr) return false;
      }
    }
    return true;
  }
};

}  // namespace

std::optional<Variant> ToVariant(const AutomationArgument& argument) {
  Variant value;
  if (!std::visit(Filler{*value}, argument)) return std::nullopt;
  return value;
}

AutomationResult FromVariant(VARIANT& value, const std::shared_ptr<Patience>& patience) {
  Variant plain;
  // Resolves references to the value behind them.
  if (FAILED(VariantCopyInd(plain.Address(), &value))) return {};
  switch (plain->vt) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return {};
    case VT_BOOL:
      return plain->boolVal != VARIANT_FALSE;
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_UI1:
    case VT_UI2:
    case VT_INT:
      if (FAILED(VariantChangeType(plain.Address(), plain.Address(), 0, VT_I4))) return {};
      return static_cast<std::int32_t>(plain->lVal);
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      if (FAILED(VariantChangeType(plain.Address(), plain.Address(), 0, VT_R8))) return {};
      return plain->dblVal;
    case VT_DISPATCH: {
      if (plain->pdispVal == nullptr) return {};
      plain->pdispVal->AddRef();
      return WrapObject(plain->pdispVal, patience);
    }
    default:
      if (FAILED(VariantChangeType(plain.Address(), plain.Address(), 0, VT_BSTR))) return {};
      return String(FromWide(plain->bstrVal, SysStringLen(plain->bstrVal)));
  }
}

}  // namespace tolvane::platform::windows
