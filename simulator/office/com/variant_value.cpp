#include "simulator/office/com/variant_value.h"

#include <cstddef>
#include <cstdint>

#include "simulator/office/com/dispatch_object.h"
#include "simulator/office/com/text.h"

namespace tolvane::office {
namespace {

/// A null BSTR is an empty text.
String FromBstr(BSTR text) { return FromWide(text, SysStringLen(text)); }

/// The first dimension of an array varies fastest in memory.
std::optional<Value> FromArray(SAFEARRAY* array) {
  if (array == nullptr || SafeArrayGetDim(array) != 2) return std::nullopt;
  // The bounds stand in reverse order: the last dimension first.
  Table table{array->rgsabound[1].cElements, array->rgsabound[0].cElements, {}};
  void* data = nullptr;
  if (FAILED(SafeArrayAccessData(array, &data))) return std::nullopt;
  const BSTR* const texts = static_cast<const BSTR*>(data);
  table.texts.reserve(table.rows * table.columns);
  for (std::size_t row = 0; row < table.rows; ++row) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      table.texts.push_back(FromBstr(texts[column * table.rows + row]));
    }
  }
  SafeArrayUnaccessData(array);
  return table;
}

std::optional<Value> FromObject(IDispatch* dispatch) {
  const std::optional<Object> object = OwnObject(dispatch);
  if (!object) return std::nullopt;
  return *object;
}

}  // namespace

std::optional<Value> FromVariant(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_BSTR:
      return FromBstr(variant.bstrVal);
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I4:
      return std::int32_t{variant.lVal};
    case VT_ARRAY | VT_BSTR:
      return FromArray(variant.parray);
    case VT_DISPATCH:
      return FromObject(variant.pdispVal);
    default:
      return std::nullopt;
  }
}

}  // namespace tolvane::office
