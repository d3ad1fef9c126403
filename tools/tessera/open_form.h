// Opens whatever a person names: a form, delimited text or a database.

#pragma once

#include <string>
#include <vector>

#include "tools/tessera/form.h"
#include "tools/tessera/form_components.h"

namespace tessera {

// A form with its data, before anything of it stands on a page.
struct OpenedForm {
  Form form;
  FormComponents components;
};

// The tables of an SQLite database in the order of their making; none for any other file.
Loaded<std::vector<std::string>> databaseTables(const std::string& path);

// FORM, FILE.csv, FILE.sqlite or FILE.sqlite:TABLE. A database without a table opens with its first one.
Loaded<OpenedForm> openForm(const std::string& name, const LoadProgress& progress = {});

}  // namespace tessera
