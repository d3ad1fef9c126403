// Reads the text that defines the popup menu.

#pragma once

#include "config/info_services.h"
#include "config/menu_item.h"
#include "shared/xlist.h"

namespace tessera {

// Appends the top-level items to `menu`. False when the text is refused or an item is incomplete; the items
// before the faulty one stay.
bool parseMenuInfo(InfoServices& services, const XString& text, XList<MenuItem>& menu);

}  // namespace tessera
