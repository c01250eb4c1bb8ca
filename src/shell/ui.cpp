// What the engine tells the user and asks of the user, without knowing the screens.
#include "shell/ui.h"

namespace kestrane {

void Ui::request_user_info(const std::string& path) {
  notice("No user information is on file (" + path +
         "). Printed sheets carry it in their headers; enter it with: kestrane userinfo set --name NAME "
         "--company COMPANY ...");
}

bool RecordingUi::ask(const std::string& text, const std::string& title) {
  questions.push_back(title + ": " + text);
  return answer;
}

}  // namespace kestrane
