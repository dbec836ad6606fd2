# The portable core: standard C++ only, text in char16_t. Every .cpp in
# settings/ and data/ belongs to it, plus the text and scaling helpers of app/.
file(GLOB TW_CORE_SOURCES CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/settings/*.cpp
  ${PROJECT_SOURCE_DIR}/data/*.cpp
  ${PROJECT_SOURCE_DIR}/platform/*.cpp)
add_library(tw_core STATIC
  ${TW_CORE_SOURCES}
  ${PROJECT_SOURCE_DIR}/app/wide_string.cpp
  ${PROJECT_SOURCE_DIR}/app/scaling.cpp
  ${PROJECT_SOURCE_DIR}/app/load_text.cpp
  ${PROJECT_SOURCE_DIR}/app/text.cpp)
target_include_directories(tw_core PUBLIC ${PROJECT_SOURCE_DIR})

# In-memory stand-ins of the platform, used by native tests, benchmarks and fuzzers.
file(GLOB TW_MEMORY_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/memory/*.cpp)
add_library(tw_platform_memory STATIC ${TW_MEMORY_SOURCES})
target_link_libraries(tw_platform_memory PUBLIC tw_core)
