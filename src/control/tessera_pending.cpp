// Members whose modules are not part of this version: they are accepted and do nothing yet. CHANGELOG.md
// lists what is there.

#include "control/tessera.h"

namespace tessera {

HResult Tessera::get_LayoutInfo(const XString&, const XString&, XValue&) { return S_OK; }
HResult Tessera::put_LayoutInfo(const XString&, const XString&, const XValue&) { return S_OK; }
HResult Tessera::ExportTitle(std::int32_t, const XString&) { return S_OK; }
HResult Tessera::ExportFooter(std::int32_t, const XString&) { return S_OK; }
HResult Tessera::GridToExcel(const XString&, const XString&, std::int32_t) { return S_OK; }
HResult Tessera::GridToHtml(const XString&, std::int32_t) { return S_OK; }
HResult Tessera::get_BlockSelect(const XString&, XValue&) { return S_OK; }
HResult Tessera::put_BlockSelect(const XString&, const XValue&) { return S_OK; }

}  // namespace tessera
