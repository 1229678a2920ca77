#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace phonesim {

/// A command line taken apart. The name is upper-case and keeps its "AT": "AT+CSCS", "AT*EOBEX".
/// Basic commands carry their number as argument: "ATE0" is "ATE" with "0".
struct AtCall {
  enum class Form { Run, Read, Test, Set };  ///< +X, +X?, +X=?, +X=argument

  std::string name;
  Form form = Form::Run;
  std::string argument;
};

AtCall ParseAtCall(std::string_view line);

struct AtAnswer {
  enum class Result {
    Ok,
    Error,
    CmsError,  ///< +CMS ERROR with a code of 3GPP TS 27.005
    Connect,
    Prompt,   ///< "> ": the client goes on with a body
    Unknown,  ///< no such command or parameter
  };

  Result result = Result::Ok;
  std::vector<std::string> lines = {};
  int code = 0;                                                ///< of `CmsError`
  std::function<AtAnswer(const std::string& body)> take = {};  ///< of `Prompt`: the body's answer
};

/// A number of digits only.
std::optional<int> AtNumber(std::string_view digits);

/// The bytes of an answer: CR LF, the lines, each with CR LF behind it, then CR LF, the result
/// code, CR LF. A prompt is CR LF ">" and a blank.
std::string FormatAtAnswer(const AtAnswer& answer);

/// The phone's AT commands: a table that its abilities add their rows to.
class AtCommands {
 public:
  using Handler = std::function<AtAnswer(const AtCall&)>;

  void Add(const std::string& name, Handler handler) { table_[name] = std::move(handler); }

  /// A command that no row has is `Unknown`.
  AtAnswer Run(const AtCall& call) const;

 private:
  std::map<std::string, Handler> table_;
};

}  // namespace phonesim
