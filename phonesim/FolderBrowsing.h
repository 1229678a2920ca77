#pragma once

#include "phonesim/Behaviour.h"
#include "phonesim/FileTree.h"
#include "phonesim/ObexService.h"

namespace phonesim {

/// The folder browsing service of IrOBEX over the phone's files. Each session starts in the root.
class FolderBrowsing : public ObexService {
 public:
  /// The row that the phone offers it by. Both arguments must outlive every session.
  static ObexServiceRow Row(const FileTree& files, Settings& settings);

  FolderBrowsing(const FileTree& files, Settings& settings) : files_(files), settings_(settings) {}

  void SetPath(std::uint8_t flags, const ObexHeaders& headers) override;
  ObexObject Get(const ObexHeaders& headers) override;
  ObexUpload BeginPut(const ObexHeaders& headers) override;
  Bytes FinishPut(const ObexUpload& upload) override;
  Bytes Delete(const ObexHeaders& headers) override;

 private:
  ObexObject Listing(const ObexHeader& type) const;
  ObexObject File(const ObexHeader& name);

  const FileTree& files_;
  Settings& settings_;
  FileTree::Place folder_;
};

}  // namespace phonesim
