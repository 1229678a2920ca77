#pragma once

// The ways to the phone, as main makes them once and hands them down.

#include "link/AT.h"
#include "link/FileService.h"
#include "link/IrMC.h"
#include "link/OBEX.h"
#include "link/PortDiagnosis.h"
#include "link/linkport.h"
#include "link/modComLib.h"

namespace tessarin {

struct PhoneLink {
  linkport& port;
  const PortDiagnosis& diagnosis;
  modComLib& com;
  AT& at;
  OBEX& obex;
  FileService& files;
  IrMC& irmc;
};

inline constexpr std::string_view kFolderListingType = "x-obex/folder-listing";

}  // namespace tessarin
