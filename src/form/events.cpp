#include "form/events.h"

#include <algorithm>

const Route* Find_Route(std::span<const Route> table, std::string_view window, std::string_view control, Event on) {
  for (const Route& route : table)
    if (route.On == on && route.Control == control && route.Window == window) return &route;
  return nullptr;
}

bool Run_Event(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args) {
  const Route* route = Find_Route(vForm.Events, window, control, on);
  if (!route || (window == window::Edit && !vForm.Edit) || (window == window::About && !vForm.About)) return false;
  args.Index = route->Index;
  route->Run(vForm, args);
  return true;
}

namespace {

void Write_And_Raise(Vorlane& vForm, int& value, int new_value, std::string_view control, Event on) {
  if (value == new_value) return;
  value = new_value;
  Event_Args args;
  Run_Event(vForm, window::Main, control, on, args);
}

}  // namespace

void Slider_Set_Value(Vorlane& vForm, int value) {
  Write_And_Raise(vForm, vForm.Slider.Value, std::clamp(value, vForm.Slider.Min, vForm.Slider.Max), "Slider",
                  Event::Change);
}

void Check_Set_Value(Vorlane& vForm, int value) {
  Write_And_Raise(vForm, vForm.Check.Value, value, "Check", Event::Click);
}
