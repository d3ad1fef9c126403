// Reads form files.

#pragma once

#include <string>

#include "platform/document.h"
#include "tools/tessera/form.h"

namespace tessera {

// Strict: an element or attribute that a form does not have, a value that is none of its kind, a property
// that the control does not keep and a file that cannot be read are faults. The data behind the components
// is not looked at.
Loaded<Form> readForm(DocumentReader& documents, const std::string& path);

// The text of a UTF-8 file; `namedBy` says in the fault who wants it (its reason stays empty: the file
// itself is named).
Loaded<std::string> readTextFile(const std::string& path, const FormError& namedBy = {});

}  // namespace tessera
