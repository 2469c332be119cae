# tavorine_library(name [PART] SOURCES a.cpp ... LINKS base ...)
# A folder is a static library and a namespace; headers are named from the top of the tree. LINKS are the arrows of the
# house: what the library's own files include, no more, held by tests/house. PART: the folder holds several libraries,
# and this one has only the headers of its sources.
function(tavorine_library name)
    cmake_parse_arguments(ARG "PART" "" "SOURCES;LINKS" ${ARGN})
    if(ARG_SOURCES)
        set(visibility PUBLIC)
        add_library(${name} STATIC ${ARG_SOURCES})
        target_link_libraries(${name} PRIVATE tavorine_warnings)
    else()
        set(visibility INTERFACE)
        add_library(${name} INTERFACE)
    endif()
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    file(GLOB headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.h)
    if(ARG_PART)
        tavorine_keep_headers_of(headers "${ARG_SOURCES}")
    endif()
    tavorine_include_root(root ${name} ${folder} "${headers}")
    target_include_directories(${name} ${visibility} ${root})
    target_link_libraries(${name} ${visibility} ${ARG_LINKS})
    tavorine_note_arrows(${name} ${folder} "${headers}" "${ARG_SOURCES}" "${ARG_LINKS}")
endfunction()

# Keeps in the list only the headers that belong to one of the sources by name.
function(tavorine_keep_headers_of list sources)
    string(REGEX MATCHALL "[a-z0-9_]+\\.cpp" own "${sources}")
    list(TRANSFORM own REPLACE "cpp$" "h")
    set(kept)
    foreach(header IN LISTS ${list})
        if(header IN_LIST own)
            list(APPEND kept ${header})
        endif()
    endforeach()
    set(${list} ${kept} PARENT_SCOPE)
endfunction()

# A folder that shows nothing but the library's headers, as links, so that "pages/links.h" is found only by those who
# link the library. Where links cannot be made it is the source tree, and only the tests hold the arrows.
function(tavorine_include_root result name folder headers)
    set(root ${PROJECT_BINARY_DIR}/include/${name})
    file(REMOVE_RECURSE ${root})
    file(MAKE_DIRECTORY ${root}/${folder})
    foreach(header IN LISTS headers)
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${root}/${folder}/${header} RESULT outcome SYMBOLIC)
        if(NOT outcome EQUAL 0)
            set(root ${PROJECT_SOURCE_DIR})
            break()
        endif()
    endforeach()
    set(${result} ${root} PARENT_SCOPE)
endfunction()

# The arrows as a file, for the tests and for the picture in docs.
set(TAVORINE_ARROWS ${PROJECT_BINARY_DIR}/arrows.txt)
file(WRITE ${TAVORINE_ARROWS} "")

function(tavorine_note_arrows name folder headers sources links)
    string(REGEX MATCHALL "[a-z0-9_]+\\.cpp" sources "${sources}")
    string(REPLACE ";" " " files "${headers};${sources}")
    string(REPLACE ";" " " links "${links}")
    file(APPEND ${TAVORINE_ARROWS} "${name} | ${folder} | ${files} | ${links}\n")
endfunction()

add_library(tavorine_warnings INTERFACE)
# GCC 12 takes "literal" + std::string for overlapping memory when it optimises, hence -Wno-restrict.
target_compile_options(tavorine_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Woverloaded-virtual -Wnon-virtual-dtor -ffp-contract=off
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>
    $<$<BOOL:${TAVORINE_WERROR}>:-Werror>)
