#include "clients/screens/ClientDesk.h"

namespace quillary::clients {

void ClientDesk::OnClick(QAbstractButton* button, std::function<void()> command) const {
  tools.runner.OnClick(button, QString::fromLatin1(kClientScreen), std::move(command));
}

void ClientDesk::Run(const char* procedure, const std::function<void()>& command) const {
  tools.runner.Run(QString::fromLatin1(kClientScreen), QString::fromLatin1(procedure), command);
}

}  // namespace quillary::clients
