// Result codes of the automation surface and of the sinks.

#pragma once

#include <cstdint>

namespace tessera {

using HResult = std::int32_t;

constexpr HResult hresult(std::uint32_t bits) { return static_cast<HResult>(bits); }

inline constexpr HResult S_OK = 0;
inline constexpr HResult E_NOTIMPL = hresult(0x80004001);
inline constexpr HResult E_FAIL = hresult(0x80004005);
inline constexpr HResult E_OUTOFMEMORY = hresult(0x8007000E);
inline constexpr HResult E_INVALIDARG = hresult(0x80070057);
inline constexpr HResult DISP_E_MEMBERNOTFOUND = hresult(0x80020003);
inline constexpr HResult DISP_E_TYPEMISMATCH = hresult(0x80020005);
inline constexpr HResult DISP_E_OVERFLOW = hresult(0x8002000A);
inline constexpr HResult DISP_E_BADPARAMCOUNT = hresult(0x8002000E);

constexpr bool succeeded(HResult status) { return status >= 0; }

}  // namespace tessera
