// Reads the text that configures the indicator column.

#pragma once

#include "config/indicator_record.h"
#include "config/info_services.h"

namespace tessera {

// The attributes of the root element, whatever its name; what the text does not name stays as it is. False
// when the text is refused.
bool parseIndicatorInfo(InfoServices& services, const XString& text, IndicatorRecord& record);

}  // namespace tessera
