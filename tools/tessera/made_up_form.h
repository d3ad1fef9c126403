// A form for data that comes without one.

#pragma once

#include "tools/tessera/form.h"

namespace tessera {

// The data set's fields as columns: the header shows the name, the width fits what most rows hold,
// numbers stand on the right, every cell can be edited. The font is the form's.
XString madeUpColumns(DataSetControl& data, const Form& form);

// A form over one source, with its columns still to be made up from the data.
Form madeUpForm(const DataSource& source);

}  // namespace tessera
