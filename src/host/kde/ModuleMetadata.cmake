# The texts by which System Settings finds the module are those of the panel's menu entry, in all its languages.

# Writes FILE into the build folder: FILE.in of this folder, with the entry's Comment as description and its Keywords.
function(write_module_metadata file entry)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${file}.in" "${entry}")
    file(READ "${CMAKE_CURRENT_SOURCE_DIR}/${file}.in" metadata)
    file(READ "${entry}" lines)
    # Commas stand between the words there; here, semicolons and brackets have meanings of CMake's own.
    string(REPLACE ";\n" "\n" lines "${lines}")
    string(REPLACE ";" "," lines "${lines}")
    string(REPLACE "[" "<" lines "${lines}")
    string(REPLACE "]" ">" lines "${lines}")
    string(REGEX MATCHALL "\n(Comment|Keywords)[^=\n]*=[^\n]*" lines "${lines}")
    foreach(line IN LISTS lines)
        string(REGEX MATCH "^\n(Comment|Keywords)([^=]*)=(.*)$" line "${line}")
        set(text "\"${CMAKE_MATCH_3}\"")
        string(REPLACE "<" "[" language "${CMAKE_MATCH_2}")
        string(REPLACE ">" "]" language "${language}")
        if(CMAKE_MATCH_1 STREQUAL "Comment")
            string(JSON metadata SET "${metadata}" KPlugin "Description${language}" "${text}")
        else()
            string(JSON metadata SET "${metadata}" "X-KDE-Keywords${language}" "${text}")
        endif()
    endforeach()
    # Frameworks 6 take the name of the file, and do not want to be told another time.
    if(QUORVI_QT EQUAL 6)
        string(JSON metadata REMOVE "${metadata}" KPlugin Id)
    endif()
    # Not written when it is the same: the module would be built anew.
    file(CONFIGURE OUTPUT "${file}" CONTENT "${metadata}\n" @ONLY)
endfunction()
