# The real platform over the Win32 API (MinGW-w64 build only).
file(GLOB TW_WIN32_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/win32/*.cpp)
add_library(tw_platform_win32 STATIC ${TW_WIN32_SOURCES})
target_link_libraries(tw_platform_win32 PUBLIC tw_core)
target_compile_definitions(tw_platform_win32 PUBLIC UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
# Only what start-up needs is linked: every DLL imported is loaded and
# initialised before the first window, so the common controls are loaded
# when first needed (comctl32 costs Wine some 17 ms to load).
target_link_libraries(tw_platform_win32 PUBLIC gdi32 user32 advapi32)

# The application as a library (the shell, pages, controls and the Win32 side
# of the data code in data/win32), so UI tests can create the real main
# window in-process. app/main.cpp alone makes the program.
file(GLOB TW_UI_SOURCES CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/app/*.cpp ${PROJECT_SOURCE_DIR}/pages/*.cpp ${PROJECT_SOURCE_DIR}/controls/*.cpp
  ${PROJECT_SOURCE_DIR}/data/win32/*.cpp)
list(REMOVE_ITEM TW_UI_SOURCES ${PROJECT_SOURCE_DIR}/app/main.cpp)
if(TW_UI_SOURCES)
  add_library(tw_ui STATIC ${TW_UI_SOURCES})
  target_link_libraries(tw_ui PUBLIC tw_platform_win32)
endif()

# Resources and the program are added by resources/CMakeLists.txt when present.
if(EXISTS ${PROJECT_SOURCE_DIR}/resources/CMakeLists.txt)
  add_subdirectory(${PROJECT_SOURCE_DIR}/resources ${CMAKE_BINARY_DIR}/resources)
endif()
add_subdirectory(${PROJECT_SOURCE_DIR}/tools ${CMAKE_BINARY_DIR}/tools)

# The program: app/main.cpp over tw_ui, with the program's own resources,
# placed beside the resource libraries as the installation lays them out.
if(TARGET tw_ui AND TARGET tw_program_resources)
  add_executable(TidewellSettings WIN32 ${PROJECT_SOURCE_DIR}/app/main.cpp $<TARGET_OBJECTS:tw_program_resources>)
  target_link_libraries(TidewellSettings PRIVATE tw_ui)
  target_link_options(TidewellSettings PRIVATE -municode)
  set_target_properties(TidewellSettings PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${TW_LIBRARY_FOLDER})

  # The UI tests start the program as a second process.
  function(tw_program_for_ui_tests)
    if(TARGET ui_tests)
      add_dependencies(ui_tests TidewellSettings)
      target_compile_definitions(ui_tests PRIVATE TW_PROGRAM=L"Z:${TW_LIBRARY_FOLDER}/TidewellSettings.exe")
    endif()
  endfunction()
  cmake_language(DEFER DIRECTORY ${PROJECT_SOURCE_DIR} CALL tw_program_for_ui_tests)
endif()
