#pragma once

#include "phonesim/FileTree.h"
#include "phonesim/ObexService.h"

namespace phonesim {

/// The service that takes multimedia messages: files by Put, without Connection Id and Length.
class MmsTarget : public ObexService {
 public:
  /// The row that the phone offers it by. `inbox` is the tree whose root takes the messages, and
  /// must outlive every session.
  static ObexServiceRow Row(const FileTree& inbox);

  explicit MmsTarget(const FileTree& inbox) : inbox_(inbox) {}

  void SetPath(std::uint8_t flags, const ObexHeaders& headers) override;
  ObexObject Get(const ObexHeaders& headers) override;
  ObexUpload BeginPut(const ObexHeaders& headers) override;
  Bytes FinishPut(const ObexUpload& upload) override;
  Bytes Delete(const ObexHeaders& headers) override;

 private:
  const FileTree& inbox_;
};

}  // namespace phonesim
