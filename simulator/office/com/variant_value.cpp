#include "simulator/office/com/variant_value.h"

#include <type_traits>
#include <utility>

#include "simulator/office/com/dispatch_object.h"
#include "simulator/office/com/text.h"

namespace tolvane::office {
namespace {

/// A null BSTR is an empty text.
String FromBstr(BSTR text) { return FromWide(text, SysStringLen(text)); }

std::optional<String> TextOf(const BSTR& text) { return FromBstr(text); }

std::optional<String> TextOf(const VARIANT& variant) {
  if (variant.vt == VT_EMPTY) return String();
  if (variant.vt == VT_BSTR) return FromBstr(variant.bstrVal);
  return std::nullopt;
}

/// The first dimension of an array varies fastest in memory.
template <typename Element>
std::optional<Table> ReadElements(const Element* elements, std::size_t rows, std::size_t columns) {
  Table table{rows, columns, {}, std::is_same_v<Element, VARIANT>};
  table.texts.reserve(rows * columns);
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      std::optional<String> text = TextOf(elements[column * rows + row]);
      if (!text) return std::nullopt;
      table.texts.push_back(*std::move(text));
    }
  }
  return table;
}

std::optional<Value> FromArray(SAFEARRAY* array, VARTYPE element) {
  if (array == nullptr || (element != VT_BSTR && element != VT_VARIANT)) return std::nullopt;
  const UINT dimensions = SafeArrayGetDim(array);
  if (dimensions != 1 && dimensions != 2) return std::nullopt;
  // The bounds stand in reverse order: the last dimension first.
  const std::size_t columns = array->rgsabound[0].cElements;
  const std::size_t rows = dimensions == 1 ? 1 : array->rgsabound[1].cElements;
  void* data = nullptr;
  if (FAILED(SafeArrayAccessData(array, &data))) return std::nullopt;
  std::optional<Table> table = element == VT_BSTR
                                   ? ReadElements(static_cast<const BSTR*>(data), rows, columns)
                                   : ReadElements(static_cast<const VARIANT*>(data), rows, columns);
  SafeArrayUnaccessData(array);
  if (!table) return std::nullopt;
  return *std::move(table);
}

std::optional<Value> FromNumber(VARIANT& variant, VARTYPE wanted) {
  VARIANT number;
  VariantInit(&number);
  if (FAILED(VariantChangeType(&number, &variant, 0, wanted))) return std::nullopt;
  if (wanted == VT_I4) return std::int32_t{number.lVal};
  return number.dblVal;
}

std::optional<Value> FromReference(VARIANT& variant) {
  VARIANT copy;
  VariantInit(&copy);
  if (FAILED(VariantCopyInd(&copy, &variant))) return std::nullopt;
  std::optional<Value> value;
  if ((copy.vt & VT_BYREF) == 0) value = FromVariant(copy);
  VariantClear(&copy);
  return value;
}

std::optional<Value> FromObject(IDispatch* dispatch) {
  const std::optional<Object> object = OwnObject(dispatch);
  if (!object) return std::nullopt;
  return *object;
}

}  // namespace

std::optional<Value> FromVariant(VARIANT& variant) {
  if ((variant.vt & VT_BYREF) != 0) return FromReference(variant);
  if ((variant.vt & VT_ARRAY) != 0) {
    return FromArray(variant.parray, static_cast<VARTYPE>(variant.vt & VT_TYPEMASK));
  }
  switch (variant.vt) {
    case VT_BSTR:
      return FromBstr(variant.bstrVal);
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
      return FromNumber(variant, VT_I4);
    case VT_R4:
    case VT_R8:
      return FromNumber(variant, VT_R8);
    case VT_DISPATCH:
      return FromObject(variant.pdispVal);
    default:
      return std::nullopt;
  }
}

}  // namespace tolvane::office
