#include "store/type_report.h"

#include <exception>
#include <string>

#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/image.h"

std::string Type_Report::Text() const {
  return "Type: " + Type + " Records exist: " + std::to_string(Records_Exist) + " " + Remark;
}

Type_Report File_Type_Report(const Vorlane& vForm) {
  const std::string zeros(64, '0');
  Type_Report report;
  for (int k = 1; k <= 49; ++k)
    if (vForm.Record(k) != zeros) ++report.Records_Exist;
  if (vForm.FileType == "ja") {
    // The stump of record 50 is never counted; it is expected to be all zero.
    if (vForm.Record(50) != zeros.substr(0, 56)) report.Remark = "Bad last record";
    report.Type = "Агония Власти.";
  } else {
    if (vForm.Record(50) != zeros) ++report.Records_Exist;
    report.Type = "JA2-eng. & UB-any ver.";
  }
  return report;
}

void nCurrent_Click(Vorlane& vForm) {
  if (vForm.SBar_3.SimpleText.empty()) {
    Show_Error(vForm.platform, vForm.Work_Text, "5", msgbox::Information, "VORLANE");
    return;
  }
  try {
    vForm.platform.MsgBox(File_Type_Report(vForm).Text(), msgbox::Information, "FILE INFO:");
  } catch (const std::exception&) {
    Show_Error(vForm.platform, vForm.Work_Text, "6", msgbox::Warning, vForm.Error_Title);
  }
}
