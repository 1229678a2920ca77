#include "core/SubMain.h"

#include "controls/WindowHost.h"

namespace tessarin {

void SubMain(TessarinMenu& session, const regAPI& registry) {
  const Text code = registry.RegGetString(kRegistryKey, kRegistryLanguage);
  session.language().readLangFile(LanguageIndexOf(code));
  session.Show(Modality::Modeless);
  session.Refresh();
}

}  // namespace tessarin
