#pragma once

// What contacts and events in a vdir folder have in common: identity, time, and how they are saved.

#include <optional>
#include <string>
#include <utility>

#include "codecs/Faults.h"
#include "outlook/Outlook.h"
#include "outlook/VdirFile.h"

namespace tessarin::outlook {

// `Kind` is ContactItem or AppointmentItem, `Document` is Card or Event.
template <class Kind, class Document>
class VdirItem : public Kind {
 public:
  // How the item in a file is known.
  enum class Known { ByUid, ByName };

  // The file's content is already read.
  VdirItem(VdirFile file, Document document, Known known)
      : file_(std::move(file)), document_(std::move(document)), known_(known), isSaved_(true) {
    entryId_ = IdentityIn(document_);
  }
  // A new item, whose file is made by the first Save.
  VdirItem(VdirFile file, Document document)
      : file_(std::move(file)), document_(std::move(document)) {}

  const Text& EntryID() const override { return entryId_; }

  // Sees what another program did to the file meanwhile; a file that cannot be read any more
  // leaves the item as it was.
  DateValue LastModificationTime() override {
    if (isSaved_ && file_.HasChanged()) SeeChange();
    return file_.Modified();
  }

  // A file that changed since it was read is read again, and only what was set here is changed in
  // it. One that is damaged now, or holds another item, is left alone: FileError. One that has
  // another name now is followed, one that is gone is written again.
  void Save() override {
    try {
      if (isSaved_ && file_.IsGone()) Follow();
      std::string old;
      Document document = isSaved_ && file_.Exists() ? OnDisk(old) : document_;
      Change(document);
      const std::string bytes = document.Bytes();
      if (bytes != old) file_.Write(bytes);
      document_ = std::move(document);
    } catch (const FileError&) {
      Loaded();
      throw;
    }
    isSaved_ = true;
    entryId_ = IdentityIn(document_);
    Loaded();
  }

 protected:
  const Document& document() const { return document_; }
  // Carries what was set over to the document.
  virtual void Change(Document& document) const = 0;
  // The document is another one: what was set is forgotten.
  virtual void Loaded() = 0;

 private:
  void SeeChange() {
    VdirFile file(file_.path());
    auto now = SameItem(file.ReadIfPossible());
    if (!now) return;
    document_ = std::move(*now);
    file_ = std::move(file);
    Loaded();
  }

  void Follow() {
    if (known_ == Known::ByName) return;
    const auto& path = file_.path();
    for (const auto& other : VdirItems(path.parent_path(), path.extension().string())) {
      VdirFile file(other);
      if (!SameItem(file.ReadIfPossible())) continue;
      file_ = std::move(file);
      return;
    }
  }

  // The item as the file holds it now, whose bytes go into `bytes`.
  Document OnDisk(std::string& bytes) {
    bytes = file_.Read();
    auto now = SameItem(bytes);
    if (!now) throw FileError(std::make_error_code(std::errc::bad_message), file_.path());
    return std::move(*now);
  }

  // What the file's bytes are now, when they still are this item.
  std::optional<Document> SameItem(std::string_view bytes) const {
    auto now = Document::Read(bytes);
    if (now && (!now->IsItem() || IdentityIn(*now) != entryId_)) now.reset();
    return now;
  }

  Text IdentityIn(const Document& document) const {
    return known_ == Known::ByName ? file_.Stem() : document.uid();
  }

  VdirFile file_;
  Document document_;
  Known known_ = Known::ByUid;
  Text entryId_;
  bool isSaved_ = false;
};

}  // namespace tessarin::outlook
