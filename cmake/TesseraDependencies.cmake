# Third-party libraries, all from the distribution's packages (scripts/setup installs them).

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(GTest REQUIRED)
find_package(fmt REQUIRED)
find_package(CLI11 REQUIRED)

pkg_check_modules(pixman REQUIRED IMPORTED_TARGET pixman-1)
pkg_check_modules(freetype REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(harfbuzz REQUIRED IMPORTED_TARGET harfbuzz)
pkg_check_modules(fribidi REQUIRED IMPORTED_TARGET fribidi)
pkg_check_modules(fontconfig REQUIRED IMPORTED_TARGET fontconfig)
pkg_check_modules(libxml REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(pixbuf REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(curl REQUIRED IMPORTED_TARGET libcurl)
pkg_check_modules(sqlite REQUIRED IMPORTED_TARGET sqlite3)

if(TESSERA_QT)
  find_package(Qt6 REQUIRED COMPONENTS Widgets)
endif()
if(TESSERA_BENCH)
  find_package(benchmark REQUIRED)
  find_package(Qt6 QUIET COMPONENTS Widgets)  # the peer that painting is measured against
endif()
