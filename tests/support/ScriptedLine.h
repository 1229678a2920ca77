#pragma once

// An AT line that plays a script: each command takes the next reply.

#include <deque>
#include <functional>
#include <vector>

#include "codecs/ATLine.h"

namespace tessarin {

class ScriptedLine : public ATLine {
 public:
  // An empty one stands for a phone that stays silent, and so owes the reply. When they run out,
  // `answer`, or "ERROR" as of a phone that refuses.
  std::deque<Text> replies;
  std::function<Text(const Text& sent)> answer;  // to what was sent last
  std::vector<Text> sent;  // commands and raw text, with their way: "text:" and "raw:"
  std::size_t sendsLeft = SIZE_MAX;

  bool SendATCommand(TextView command) override { return Send(Text(command)); }
  bool SendATRaw(TextView text) override { return Send(u"raw:" + Text(text)); }
  bool SendATText(TextView command) override { return Send(u"text:" + Text(command)); }
  Text ReadATResponse() override { return Next(); }
  bool IsReplyOwed() const override { return isReplyOwed_; }
  Text ReadATResponseWait() override { return Next(); }
  Text ReadLongResponse() override { return Next() + Text(1, u'\0'); }

 private:
  bool Send(Text text) {
    if (sendsLeft == 0) return false;
    --sendsLeft;
    sent.push_back(std::move(text));
    return true;
  }
  Text Next() {
    isReplyOwed_ = !replies.empty() && replies.front().empty();
    if (isReplyOwed_) replies.front() = u"ERROR";
    if (replies.empty()) return answer ? answer(sent.back()) : u"ERROR";
    Text reply = std::move(replies.front());
    replies.pop_front();
    return reply;
  }

  bool isReplyOwed_ = false;
};

}  // namespace tessarin
