#pragma once

// An AT line that plays a script: each command takes the next reply.

#include <deque>
#include <functional>
#include <vector>

#include "codecs/ATLine.h"

namespace tessarin {

class ScriptedLine : public ATLine {
 public:
  std::deque<Text> replies;  // when they run out, `answer`, or "ERROR" as on time-out
  std::function<Text(const Text& sent)> answer;  // to what was sent last
  std::vector<Text> sent;  // commands and raw text, with their way: "text:" and "raw:"
  std::size_t sendsLeft = SIZE_MAX;

  bool SendATCommand(TextView command) override { return Send(Text(command)); }
  bool SendATRaw(TextView text) override { return Send(u"raw:" + Text(text)); }
  bool SendATText(TextView command) override { return Send(u"text:" + Text(command)); }
  Text ReadATResponse() override { return Next(); }
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
    if (replies.empty()) return answer ? answer(sent.back()) : u"ERROR";
    Text reply = std::move(replies.front());
    replies.pop_front();
    return reply;
  }
};

}  // namespace tessarin
