#include "phonesim/Server.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace phonesim {

Server::Server(const std::filesystem::path& content, std::filesystem::path link,
               Behaviour behaviour)
    : settings_(std::move(behaviour)),
      phone_(content, settings_, reports_),
      link_(std::move(link)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (wake_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

Server::~Server() {
  HangUp();
  close(wake_);
}

void Server::Start() {
  if (lineUp_) return;
  HangUp();
  phone_.Reset();
  line_ = std::make_unique<PhoneLine>(phone_, settings_, link_);
  line_->SetListener(listener_);
  lineUp_ = true;
  thread_ = std::thread([this] {
    if (line_->Run(wake_) == PhoneLine::End::Dropped) line_.reset();
    lineUp_ = false;
  });
}

void Server::Stop() { End(true); }

void Server::HangUp() { End(false); }

void Server::Restart() {
  Stop();
  Start();
}

void Server::End(bool patient) {
  if (thread_.joinable()) {
    eventfd_write(wake_, 1);
    thread_.join();
    eventfd_t ignored = 0;
    eventfd_read(wake_, &ignored);
  }
  if (patient && line_) line_->AwaitRead();
  line_.reset();
}

}  // namespace phonesim
