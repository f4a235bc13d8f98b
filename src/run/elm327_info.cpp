#include "run/elm327_info.h"

#include <tolvane_product.h>

#include <utility>

#include "run/settings_list.h"

namespace tolvane {

namespace {

struct SetDefault {
  template <typename Value, typename Default>
  void operator()(Value& field, const Default& value, std::int32_t /*since*/ = 0) const {
    field = value;
  }
  void operator()(SettingColumn& table, std::int32_t highest, std::int32_t value) const {
    ELM327_Info::Arayy_ALL_Clear_zero_long(highest, value, table);
  }
};

}  // namespace

ELM327_Info::ELM327_Info(String executable_folder)
    : executable_folder_(std::move(executable_folder)) {}

void ELM327_Info::Param_ALL_Clear() {
  t_DisableID_MAX = kSettingRows - 1;
  t_MsgMarker_MAX = kSettingRows - 1;
  VisitSettings(*this, SetDefault());

  Application_title2 = u"Tolvane";
  Copy_light2 = product::kCompany;
  Homepage_URL = product::kHomePage;
  ExcelInstallCheck = 0;
  ExcelInstallVersion = 0;
  AccessInstallCheck = 0;
  AccessInstallVersion = 0;
  t_CmbBOX_device_SelectNo = 0;
  t_select_Vender = kVenderNone;
}

}  // namespace tolvane
