# songrush_options: what every target of the project is compiled with.
add_library(songrush_options INTERFACE)
target_include_directories(songrush_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(songrush_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
target_compile_definitions(songrush_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  $<$<BOOL:${SONGRUSH_PORTABLE}>:SONGRUSH_PORTABLE>)

# songrush_floor(<name> SOURCES <files> USES <libraries>)
# One floor of the project as a static library, songrush_<name>.
function(songrush_floor name)
  cmake_parse_arguments(floor "" "" "SOURCES;USES" ${ARGN})
  add_library(songrush_${name} STATIC ${floor_SOURCES})
  set_target_properties(songrush_${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(songrush_${name} PUBLIC songrush_options ${floor_USES})
endfunction()
