# The portable core: standard C++ only, text in char16_t. Every .cpp in
# settings/, data/, the platform interfaces and base/ belongs to it.
file(GLOB TW_CORE_SOURCES CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/settings/*.cpp
  ${PROJECT_SOURCE_DIR}/data/*.cpp
  ${PROJECT_SOURCE_DIR}/platform/*.cpp
  ${PROJECT_SOURCE_DIR}/base/*.cpp)
add_library(tw_core STATIC ${TW_CORE_SOURCES})
target_include_directories(tw_core PUBLIC ${PROJECT_SOURCE_DIR})

# In-memory stand-ins of the platform, used by native tests, benchmarks and fuzzers.
file(GLOB TW_MEMORY_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/memory/*.cpp)
add_library(tw_platform_memory STATIC ${TW_MEMORY_SOURCES})
target_link_libraries(tw_platform_memory PUBLIC tw_core)
