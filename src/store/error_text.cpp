#include "store/error_text.h"

#include "form/platform.h"
#include "system/failure.h"

namespace Position {

void Error_Text(std::string& text) {
  static const std::string during = "Ошибка во время ";
  static const std::string file = " файла";
  if (text == "1")
    text = "Недопустимый ввод данных";
  else if (text == "2")
    text = "Программа вызвала неустранимую ошибку в памяти";
  else if (text == "3")
    text = "Неверный размер" + file;
  else if (text == "4")
    text = "FILE NOT SAVE";
  else if (text == "5")
    text = "Для определения формата файла его нужно сначала открыть!";
  else if (text == "6")
    text = during + "чтения" + file;
  else if (text == "7")
    text = during + "создания" + file;
  else if (text == "8")
    text = during + "сохранения" + file;
}

}  // namespace Position

int Show_Error(Platform& platform, std::string& text, const char* code, int style, const std::string& title,
               const std::string& suffix) {
  text = code;
  Position::Error_Text(text);
  return platform.MsgBox(text + suffix, style, title);
}

void End_With_Error(std::string& text, const char* code, const std::string& title) {
  text = code;
  Position::Error_Text(text);
  throw Fatal_Error{text, msgbox::Critical, title};
}
