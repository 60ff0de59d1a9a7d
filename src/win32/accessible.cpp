#include "win32/accessible.h"

#include <initguid.h>
#include <oleacc.h>

#include <map>
#include <string>
#include <utility>

#include "system/text_win.h"

namespace win32 {
namespace {

// The system's service that annotates a window's accessible object; nullptr where there is none.
// It is a COM object, made only once the windows are on the screen: until then the annotations
// wait here, so that showing the windows doesn't wait for it.
struct Annotations {
  bool started = false;
  bool com = false;  // COM started on this thread
  IAccPropServices* services = nullptr;
  std::map<std::pair<HWND, bool>, std::string> waiting;  // (control, is a name) -> text
};

Annotations& State() {
  static Annotations state;
  return state;
}

void Annotate(HWND control, bool name, std::string_view text) {
  Annotations& state = State();
  if (!state.started) {
    state.waiting[{control, name}] = std::string(text);
    return;
  }
  if (!state.services) return;
  const MSAAPROPID property = name ? PROPID_ACC_NAME : PROPID_ACC_DESCRIPTION;
  if (text.empty()) {
    MSAAPROPID properties[] = {property};
    state.services->ClearHwndProps(control, OBJID_CLIENT, CHILDID_SELF, properties, 1);
    return;
  }
  const std::wstring wide = text::Wide(text);
  state.services->SetHwndPropStr(control, OBJID_CLIENT, CHILDID_SELF, property, wide.c_str());
}

}  // namespace

void Set_Accessible_Name(HWND control, std::string_view name) { Annotate(control, true, name); }

void Set_Accessible_Description(HWND control, std::string_view description) {
  Annotate(control, false, description);
}

void Start_Accessible_Annotations() {
  Annotations& state = State();
  if (state.started) return;
  state.started = true;
  state.com = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  if (CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                       reinterpret_cast<void**>(&state.services)) != S_OK)
    state.services = nullptr;
  for (const auto& [key, text] : std::exchange(state.waiting, {}))
    if (IsWindow(key.first)) Annotate(key.first, key.second, text);
}

void End_Accessible_Annotations() {
  Annotations& state = State();
  if (state.services) state.services->Release();
  state.services = nullptr;
  if (state.com) CoUninitialize();
  state.com = false;
}

}  // namespace win32
