#pragma once

// Not every phone takes every file: which files of the computer a page offers to which model.

#include "core/Session.h"

namespace tessarin {

// Whether the page's upload arrow is offered for a file of that name. The model is searched for
// words, upper and lower case being equal; what counts of the name is the part behind its last
// point. The File page takes any file, other pages none without a point in its name.
bool IsUploadOffered(MediaKind page, TextView phoneModel, TextView fileName);

}  // namespace tessarin
