# What programs on plix need beside them, and modules that they load.

# Where the strings for hosts are, and the plug-in bundles when they are not built together with the program. The installed package
# sets both before it includes this file.
if(NOT DEFINED PLIX_HOST_STRINGS)
    set(PLIX_HOST_STRINGS ${CMAKE_CURRENT_LIST_DIR}/../plix/resources/host)
endif()
if(NOT DEFINED PLIX_PLUGINS)
    set(PLIX_PLUGINS ${PROJECT_BINARY_DIR}/plugins)
endif()
set(PLIX_RESOURCES_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/PlixCopyResources.cmake)
set(PLIX_PLUGIN_INFO ${CMAKE_CURRENT_LIST_DIR}/PluginInfo.plist.in)

# plix_add_plugin(name PRINCIPAL_CLASS class [FOLDER folder] source...): a module <name> in <folder>/<name>.bundle, which NSBundle
# loads. A source of it has PLIX_PLUGIN_MODULE of plix/platform/foundation/plugin_module.h. The module uses its host's plix and brings none.
function(plix_add_plugin name)
    cmake_parse_arguments(PLUGIN "" "PRINCIPAL_CLASS;FOLDER" "" ${ARGN})
    if(NOT PLUGIN_FOLDER)
        set(PLUGIN_FOLDER ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    set(PLUGIN_NAME ${name})
    set(bundle ${PLUGIN_FOLDER}/${name}.bundle)
    add_library(${name} MODULE ${PLUGIN_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES PREFIX "" SUFFIX ".so" OUTPUT_NAME ${name} LIBRARY_OUTPUT_DIRECTORY ${bundle}
        POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON PLIX_BUNDLE ${bundle})
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_include_directories(${name} PRIVATE $<TARGET_PROPERTY:plix::plix,INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_definitions(${name} PRIVATE $<TARGET_PROPERTY:plix::plix,INTERFACE_COMPILE_DEFINITIONS>)
    configure_file(${PLIX_PLUGIN_INFO} ${bundle}/Info.plist @ONLY)
endfunction()

# plix_add_resources(program [STRINGS folder...] [PLUGINS name...]): puts beside a program what the library looks for in its main
# bundle: the plug-in bundle DatePicker, and Localizable.strings in four languages. A program's own strings
# (<folder>/<language>.lproj/Localizable.strings, in UTF-8) are joined to these and win over them. Plug-ins that plix_add_plugin() made go
# beside it as well. The program shows its symbols to modules and has all of plix in it, whatever of that it uses by itself.
function(plix_add_resources target)
    cmake_parse_arguments(RESOURCES "" "" "STRINGS;PLUGINS" ${ARGN})
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
    # Programs that are packaged link the shared library while both are built.
    set(library plix::plix)
    if(PLIX_EXAMPLE_LIBRARY)
        set(library ${PLIX_EXAMPLE_LIBRARY})
    endif()
    get_target_property(real ${library} ALIASED_TARGET)
    if(NOT real)
        set(real ${library})
    endif()
    get_target_property(kind ${real} TYPE)
    if(kind STREQUAL "STATIC_LIBRARY")
        target_link_options(${target} PRIVATE
            "SHELL:-Wl,--whole-archive $<TARGET_FILE:plix::plix> $<TARGET_FILE:plix::logic> -Wl,--no-whole-archive")
    endif()

    set(strings ${PLIX_HOST_STRINGS} ${RESOURCES_STRINGS})
    set(folders "")
    set(languages "")
    set(bundles "")
    set(needed ${PLIX_RESOURCES_SCRIPT})
    # Whether a plug-in is built here is known when all of the project was read.
    foreach(plugin DatePicker ${RESOURCES_PLUGINS})
        set(is_built $<TARGET_EXISTS:${plugin}>)
        list(APPEND bundles
            $<${is_built}:$<TARGET_PROPERTY:${plugin},PLIX_BUNDLE>>$<$<NOT:${is_built}>:${PLIX_PLUGINS}/${plugin}.bundle>)
        list(APPEND needed $<${is_built}:$<TARGET_FILE:${plugin}>>)
    endforeach()
    foreach(folder ${strings})
        get_filename_component(folder ${folder} ABSOLUTE)
        list(APPEND folders ${folder})
        file(GLOB files CONFIGURE_DEPENDS ${folder}/*.lproj/Localizable.strings)
        list(APPEND needed ${files})
        foreach(file ${files})
            cmake_path(GET file PARENT_PATH language)
            cmake_path(GET language FILENAME language)
            list(APPEND languages ${language})
        endforeach()
    endforeach()
    list(REMOVE_DUPLICATES languages)
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/${target}_resources.stamp)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} "-DSTRINGS=${folders}" "-DBUNDLES=${bundles}" "-DTO=$<TARGET_FILE_DIR:${target}>"
            -DLOCK=${PROJECT_BINARY_DIR}/plix_resources.lock -P ${PLIX_RESOURCES_SCRIPT}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${needed}
        COMMENT "Putting resources beside ${target}"
        VERBATIM)
    add_custom_target(${target}_resources DEPENDS ${stamp})
    add_dependencies(${target} ${target}_resources)
    set_target_properties(${target} PROPERTIES PLIX_PLUGINS "DatePicker;${RESOURCES_PLUGINS}" PLIX_LANGUAGES "${languages}")
endfunction()

# plix_install_resources(program [COMPONENT component]): installs what plix_add_resources() puts beside the program, to where a program
# looks for it that is installed into bin: share/<name of the program's file>.
function(plix_install_resources target)
    cmake_parse_arguments(INSTALLED "" "COMPONENT" "" ${ARGN})
    if(NOT INSTALLED_COMPONENT)
        set(INSTALLED_COMPONENT Unspecified)
    endif()
    include(GNUInstallDirs)
    set(from $<TARGET_FILE_DIR:${target}>)
    set(to ${CMAKE_INSTALL_DATADIR}/$<TARGET_FILE_NAME:${target}>)
    get_target_property(languages ${target} PLIX_LANGUAGES)
    foreach(language ${languages})
        install(FILES ${from}/${language}/Localizable.strings DESTINATION ${to}/${language} COMPONENT ${INSTALLED_COMPONENT})
    endforeach()
    get_target_property(plugins ${target} PLIX_PLUGINS)
    foreach(plugin ${plugins})
        install(DIRECTORY ${from}/${plugin}.bundle DESTINATION ${to} COMPONENT ${INSTALLED_COMPONENT} USE_SOURCE_PERMISSIONS)
    endforeach()
endfunction()
