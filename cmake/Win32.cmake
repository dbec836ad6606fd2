# The real platform over the Win32 API (MinGW-w64 build only).
file(GLOB TW_WIN32_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/win32/*.cpp)
add_library(tw_platform_win32 STATIC ${TW_WIN32_SOURCES})
target_link_libraries(tw_platform_win32 PUBLIC tw_core)
target_compile_definitions(tw_platform_win32 PUBLIC UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
target_link_libraries(tw_platform_win32 PUBLIC gdi32 user32 advapi32 comctl32 shell32 ole32 oleaut32 msimg32)

# The application as a library (the shell, pages, controls and the Win32 side
# of the data code), so UI tests can create the real main window in-process.
# app/main.cpp alone makes the program; the portable helpers of app/ are core.
file(GLOB TW_UI_SOURCES CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/app/*.cpp ${PROJECT_SOURCE_DIR}/pages/*.cpp ${PROJECT_SOURCE_DIR}/controls/*.cpp)
list(REMOVE_ITEM TW_UI_SOURCES
  ${PROJECT_SOURCE_DIR}/app/main.cpp ${PROJECT_SOURCE_DIR}/app/wide_string.cpp
  ${PROJECT_SOURCE_DIR}/app/scaling.cpp ${PROJECT_SOURCE_DIR}/app/load_text.cpp
  ${PROJECT_SOURCE_DIR}/app/text.cpp)
if(TW_UI_SOURCES)
  add_library(tw_ui STATIC ${TW_UI_SOURCES})
  target_link_libraries(tw_ui PUBLIC tw_platform_win32)
endif()

# Resources and the program are added by resources/CMakeLists.txt when present.
if(EXISTS ${PROJECT_SOURCE_DIR}/resources/CMakeLists.txt)
  add_subdirectory(${PROJECT_SOURCE_DIR}/resources ${CMAKE_BINARY_DIR}/resources)
endif()
add_subdirectory(${PROJECT_SOURCE_DIR}/tools ${CMAKE_BINARY_DIR}/tools)
