#pragma once

#include "phonesim/Behaviour.h"
#include "phonesim/Memory.h"
#include "phonesim/ObexService.h"

namespace phonesim {

/// IrMC synchronisation, IrMC 1.1 at level 4: contacts and calendar as whole objects, as single
/// entries by their local identifier, and as logs. With pb and .vcf, or cal and .vcs:
///
///     telecom/pb.vcf                  get   all entries, one behind the other
///     telecom/pb/info.log             get   Total-Records, Maximum-Records and abilities
///     telecom/pb/luid/cc.log          get   the change counter
///     telecom/pb/luid/<n>.log         get   the same as info.log, and all changes behind counter n
///     telecom/pb/luid/.vcf            put   a new entry
///     telecom/pb/luid/<luid>.vcf      get, put, delete
///
/// Requests have no Connection Id. A whole object is valid UTF-7; a single one that is put names
/// its character sets line by line.
class IrmcSync : public ObexService {
 public:
  /// The row that the phone offers it by. Both arguments must outlive every session.
  static ObexServiceRow Row(Memory& memory, Settings& settings);

  IrmcSync(Memory& memory, Settings& settings);

  void SetPath(std::uint8_t flags, const ObexHeaders& headers) override;
  ObexObject Get(const ObexHeaders& headers) override;
  ObexUpload BeginPut(const ObexHeaders& headers) override;
  Bytes FinishPut(const ObexUpload& upload) override;
  Bytes Delete(const ObexHeaders& headers) override;

 private:
  Memory& memory_;
  Settings& settings_;
};

}  // namespace phonesim
