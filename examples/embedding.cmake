# What lives in the windows of either toolkit.
add_library(plix_example_embed STATIC embed/DemoTree.cpp)
target_link_libraries(plix_example_embed PUBLIC plix_example_support PRIVATE plix_options)

find_package(Qt6 QUIET COMPONENTS Widgets)
if(Qt6Widgets_FOUND)
    plix_add_example(embed_qt)
    target_link_libraries(plix_example_embed_qt PUBLIC plix_example_embed Qt6::Widgets)
else()
    message(STATUS "Qt 6 is not there: examples/embed_qt is left out")
endif()
