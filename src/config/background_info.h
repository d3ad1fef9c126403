// Reads the text that configures what lies under the cells and the border of the window.

#pragma once

#include "config/background_record.h"
#include "config/info_services.h"
#include "config/value_words.h"

namespace tessera {

// The borders of a window, by the number that GridConfig::borderStyle holds.
inline constexpr ValueWord windowBorderWords[] = {
    {u"line", 1}, {u"raised", 3}, {u"sunken", 2}, {u"frame", 4}, {u"none", 0}};

struct BackgroundInfoResult {
  bool ok = false;
  bool borderNamed = false;  // there was a border attribute, also one without a valid word
};

// The attributes of the root element, whatever its name; what the text does not name stays as it is. Not ok
// when the text is refused.
BackgroundInfoResult parseBackgroundInfo(InfoServices& services, const XString& text,
                                         BackgroundRecord& record, std::int32_t& borderStyle);

}  // namespace tessera
