# qvl_platform: what every target that calls the platform links. The real thing in the windows
# build, the stand-in natively.

add_library(qvl_platform INTERFACE)
if(WIN32)
  target_link_libraries(qvl_platform INTERFACE user32 gdi32 shell32 ole32 comctl32 uuid)
else()
  target_link_libraries(qvl_platform INTERFACE winsim)
endif()
