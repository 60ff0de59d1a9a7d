#include "win32/accessible.h"

#include <initguid.h>
#include <oleacc.h>

#include <string>

#include "system/text_win.h"

namespace win32 {
namespace {

// The system's service that annotates a window's accessible object; nullptr where there is none.
IAccPropServices* Services() {
  static IAccPropServices* services = [] {
    IAccPropServices* made = nullptr;
    if (CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         reinterpret_cast<void**>(&made)) != S_OK)
      return static_cast<IAccPropServices*>(nullptr);
    return made;
  }();
  return services;
}

void Annotate(HWND control, const MSAAPROPID& property, std::string_view text) {
  IAccPropServices* services = Services();
  if (!services) return;
  if (text.empty()) {
    MSAAPROPID properties[] = {property};
    services->ClearHwndProps(control, OBJID_CLIENT, CHILDID_SELF, properties, 1);
    return;
  }
  std::wstring wide = text::Wide(text);
  services->SetHwndPropStr(control, OBJID_CLIENT, CHILDID_SELF, property, wide.c_str());
}

}  // namespace

void Set_Accessible_Name(HWND control, std::string_view name) { Annotate(control, PROPID_ACC_NAME, name); }

void Set_Accessible_Description(HWND control, std::string_view description) {
  Annotate(control, PROPID_ACC_DESCRIPTION, description);
}

}  // namespace win32
