# What the program for Windows carries inside beyond that: the toolkit's Spanish and its settings.
target_sources(velmora_qt PRIVATE platform_windows.cpp)

# The typefaces stand beside: beside the program, the guided example and the tests of the window.
foreach(face Sans-Regular Sans-Bold Serif-Regular Serif-Bold)
    foreach(folder windows/programa . tests/qt)
        file(COPY /usr/share/fonts/truetype/liberation/Liberation${face}.ttf
            DESTINATION ${PROJECT_BINARY_DIR}/${folder}/letras)
    endforeach()
endforeach()

set(translations /usr/share/qt6/translations)
qt_add_resources(velmora_qt translations PREFIX /velmora/translations BASE ${translations}
    FILES ${translations}/qtbase_es.qm)
# Letters as on Debian, by the same library; the other way a printed page loses its bold ones.
qt_add_resources(velmora_qt settings PREFIX /qt/etc
    BASE ${PROJECT_SOURCE_DIR}/src/windows FILES ${PROJECT_SOURCE_DIR}/src/windows/qt.conf)
