# The real platform over the Win32 API (MinGW-w64 build only).
file(GLOB TW_WIN32_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/win32/*.cpp)
add_library(tw_platform_win32 STATIC ${TW_WIN32_SOURCES})
target_link_libraries(tw_platform_win32 PUBLIC tw_core)
target_compile_definitions(tw_platform_win32 PUBLIC UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
target_link_libraries(tw_platform_win32 PUBLIC gdi32 user32 advapi32 comctl32 shell32 ole32 oleaut32 msimg32)
