# One test executable per folder under tests/: every .cpp in it, linked
# against the given libraries, its cases registered with ctest one by one.
function(trackloom_add_test_folder name)
  cmake_parse_arguments(ARG "" "" "LIBRARIES;ENVIRONMENT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    TRACKLOOM_CORPUS_DIR="${PROJECT_SOURCE_DIR}/../shared/corpus"
    TRACKLOOM_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
