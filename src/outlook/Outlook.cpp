#include "outlook/Outlook.h"

namespace tessarin::outlook {

Application& Automation::Shared() {
  if (shared_ == nullptr) shared_ = CreateObject(u"Outlook.Application");
  return *shared_;
}

}  // namespace tessarin::outlook
