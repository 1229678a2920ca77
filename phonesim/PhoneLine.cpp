#include "phonesim/PhoneLine.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

namespace phonesim {
namespace {

constexpr std::chrono::seconds kStall{1};  ///< how long the rest of a packet may stay away
constexpr std::chrono::milliseconds kArrival{50};
constexpr std::chrono::milliseconds kReadLimit{500};

timespec Span(std::chrono::steady_clock::duration duration) {
  const auto whole = std::chrono::duration_cast<std::chrono::seconds>(duration);
  const std::chrono::nanoseconds rest = duration - whole;
  return {static_cast<std::time_t>(whole.count()), static_cast<long>(rest.count())};
}

}  // namespace

PhoneLine::PhoneLine(Phone& phone, Settings& settings, const std::filesystem::path& link)
    : phone_(phone), settings_(settings), pty_(link) {}

PhoneLine::End PhoneLine::Run(int stop) {
  for (;;) {
    const auto next = NextMoment();
    const auto wait =
        next ? std::max(*next - Clock::now(), Clock::duration::zero()) : Clock::duration::zero();
    const timespec span = Span(wait);
    const auto lineEvents = static_cast<short>(unsent_.empty() ? POLLIN : POLLIN | POLLOUT);
    std::array<pollfd, 3> fds = {
        {{stop, POLLIN, 0}, {pty_.Watch(), POLLIN, 0}, {pty_.Line(), lineEvents, 0}}};
    ppoll(fds.data(), fds.size(), next ? &span : nullptr, nullptr);

    if (fds[0].revents != 0) return End::Stopped;
    Receive((fds[2].revents & POLLIN) != 0 ? Read() : Bytes());
    if (phone_.MidPacket() && Clock::now() >= lastRead_ + kStall) phone_.Stalled();
    QueueOutputs();
    if (!SendDue() || (phone_.HungUp() && unsent_.empty() && outlet_.Empty())) {
      AwaitRead();
      return End::Dropped;
    }
  }
}

void PhoneLine::AwaitRead() const {
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(lastSent_ + kArrival - Clock::now());
  pty_.AwaitRead(std::max(left, std::chrono::milliseconds(0)), kReadLimit);
}

std::optional<PhoneLine::Clock::time_point> PhoneLine::NextMoment() const {
  auto next = unsent_.empty() ? outlet_.NextDue() : std::nullopt;
  if (phone_.MidPacket())
    next = std::min(next.value_or(Clock::time_point::max()), lastRead_ + kStall);
  return next;
}

Bytes PhoneLine::Read() {
  std::array<std::uint8_t, 4096> buffer{};
  const std::size_t count = pty_.Read(buffer);
  lastRead_ = Clock::now();
  const ByteView bytes = ByteView(buffer).first(count);
  if (listener_ && count > 0) listener_(false, bytes);
  return {bytes.begin(), bytes.end()};
}

/// The news of who comes and goes is read behind the bytes, which tells whose they are: when the
/// port stands closed they are the last client's, and still count; when it is open again they are
/// the new one's.
void PhoneLine::Receive(ByteView bytes) {
  const bool gone = pty_.LastClientGone();
  if (gone && pty_.HasClient()) Forget();
  if (!bytes.empty()) phone_.Receive(bytes);
  if (gone && !pty_.HasClient()) Forget();
}

/// A client has gone: what it did not read is lost, and the next meets a phone in its first state.
void PhoneLine::Forget() {
  phone_.LineClosed();
  outlet_.Clear();
  unsent_.clear();
  pty_.Forget();
}

void PhoneLine::QueueOutputs() {
  for (Phone::Output& output : phone_.Take()) {
    const auto now = Clock::now();
    if (!output.answer) {
      outlet_.Add(std::move(output.bytes), now);
      continue;
    }
    settings_.With([&](const Behaviour& b) {
      outlet_.AddSplit(output.bytes, now + b.answerDelay + output.delay, b.splitBytes, b.splitGap);
    });
  }
}

/// False when the phone hung up.
bool PhoneLine::SendDue() {
  if (!unsent_.empty()) {
    if (!Send(std::exchange(unsent_, {}))) return false;
  }
  while (unsent_.empty() && !outlet_.Empty()) {
    const Bytes due = outlet_.TakeDue(Clock::now());
    if (due.empty()) return true;
    if (!Send(due)) return false;
  }
  if (unsent_.empty()) phone_.Delivered();
  return true;
}

bool PhoneLine::Send(ByteView bytes) {
  std::size_t sent = 0;
  // Written within the lock, so that the count is of bytes that follow the moment it was set.
  const bool hungUp = settings_.With([&](Behaviour& b) {
    auto& left = b.dropAfterBytes;
    sent = pty_.Write(bytes.first(std::min(bytes.size(), left.value_or(bytes.size()))));
    if (!left) return false;
    *left -= sent;
    if (*left > 0) return false;
    left.reset();
    return true;
  });
  lastSent_ = Clock::now();
  if (listener_ && sent > 0) listener_(true, bytes.first(sent));
  const ByteView rest = bytes.subspan(sent);
  unsent_.assign(rest.begin(), rest.end());
  return !hungUp;
}

}  // namespace phonesim
