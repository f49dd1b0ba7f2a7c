# qvl_platform: what every target that calls the platform links: the platform's libraries in the
# windows build, the stand-in in the linux build.

add_library(qvl_platform INTERFACE)
if(WIN32)
  target_link_libraries(qvl_platform INTERFACE user32 gdi32 shell32 ole32 comctl32 uuid)
else()
  target_link_libraries(qvl_platform INTERFACE winsim)
endif()
