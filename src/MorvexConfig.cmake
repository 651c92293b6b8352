# find_package(Morvex CONFIG) gives the target Morvex::Morvex.
include(CMakeFindDependencyMacro)
find_dependency(Threads)
find_dependency(ZLIB)
find_library(Morvex_JPEG NAMES libjpeg.a jpeg REQUIRED)

include(${CMAKE_CURRENT_LIST_DIR}/MorvexTargets.cmake)
set_property(TARGET Morvex::Morvex APPEND PROPERTY
  INTERFACE_LINK_LIBRARIES Threads::Threads ZLIB::ZLIB ${Morvex_JPEG} ${CMAKE_DL_LIBS})
# The engine finds the program's plug-ins by this export.
set_property(TARGET Morvex::Morvex APPEND PROPERTY
  INTERFACE_LINK_OPTIONS LINKER:--export-dynamic-symbol=NoxGetPlugins)
