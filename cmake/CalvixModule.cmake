# calvix_module(NAME [DEPENDS other...])
#
# Builds the subsystem in folder NAME as two static libraries:
#   calvix_NAME      the logic: every .cpp of the folder (and its sub-folders)
#                    that is not a window; links Qt Core and Sql only.
#   calvix_NAME_gui  the windows and dialogs: files whose names contain Window,
#                    Dialog, Widget, View, Presenter or Desktop; links Widgets,
#                    Gui and the rest.
# Both are added to the umbrella libraries calvix_core and calvix_gui.
# Files are picked up by glob so that adding a file needs no edit here; a
# sub-folder with a CMakeLists.txt of its own is a library apart and is left
# out of the glob.
function(calvix_module name)
  cmake_parse_arguments(ARG "" "" "DEPENDS;QT_GUI_COMPONENTS;RESOURCES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS
       ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  file(GLOB_RECURSE own_lists ${CMAKE_CURRENT_SOURCE_DIR}/*/CMakeLists.txt)
  foreach(list_file IN LISTS own_lists)
    get_filename_component(sub ${list_file} DIRECTORY)
    list(FILTER sources EXCLUDE REGEX "^${sub}/")
  endforeach()
  set(core_sources "")
  set(gui_sources "")
  foreach(f IN LISTS sources)
    get_filename_component(base ${f} NAME)
    if(base MATCHES "(Window|Dialog|Widget|View|Presenter|Desktop)[^/]*\\.(h|cpp)$")
      list(APPEND gui_sources ${f})
    else()
      list(APPEND core_sources ${f})
    endif()
  endforeach()

  set(core_deps "")
  set(gui_deps "")
  foreach(d IN LISTS ARG_DEPENDS)
    list(APPEND core_deps calvix_${d})
    if(TARGET calvix_${d}_gui)
      list(APPEND gui_deps calvix_${d}_gui)
    endif()
  endforeach()

  add_library(calvix_${name} STATIC ${core_sources} ${ARG_RESOURCES})
  target_link_libraries(calvix_${name} PUBLIC Qt6::Core Qt6::Sql ${core_deps})
  target_include_directories(calvix_${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(calvix_core INTERFACE calvix_${name})

  if(gui_sources)
    add_library(calvix_${name}_gui STATIC ${gui_sources})
    target_link_libraries(calvix_${name}_gui PUBLIC calvix_${name} ${gui_deps}
                          Qt6::Gui Qt6::Widgets Qt6::PrintSupport ${ARG_QT_GUI_COMPONENTS})
    target_link_libraries(calvix_gui INTERFACE calvix_${name}_gui)
  endif()
endfunction()

# calvix_test(NAME SOURCE LIBS...): one GoogleTest executable per test file, so
# that each can be built and run alone.
function(calvix_test name source)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest GTest::gtest_main)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  gtest_discover_tests(${name}
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;CALVIX_SOURCE_DIR=${CMAKE_SOURCE_DIR}"
    DISCOVERY_TIMEOUT 60)
endfunction()

# calvix_qtest(NAME SOURCE LIBS...): one Qt Test executable for a window.
function(calvix_qtest name source)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE ${ARGN} Qt6::Test)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen:configfile=${CMAKE_SOURCE_DIR}/tests/support/screen-1280x800.json;CALVIX_SOURCE_DIR=${CMAKE_SOURCE_DIR}"
    TIMEOUT 120)
endfunction()
