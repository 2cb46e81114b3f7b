# What the program for Windows carries inside: its drawings as recorded strokes, since Debian has no
# source of the SVG module that could be built for Windows, and the toolkit's Spanish.
target_sources(velmora_qt PRIVATE drawing_windows.cpp platform_windows.cpp)

set(assets ${PROJECT_SOURCE_DIR}/assets)
set(drawings "")
foreach(name splash fondo2 fondo3 fondo4 fondo5 fondo6)
    list(APPEND drawings ${VELMORA_DRAWINGS}/${name}.pic)
endforeach()
qt_add_resources(velmora_qt drawings PREFIX /velmora BASE ${VELMORA_DRAWINGS} FILES ${drawings})

set(icon "")
foreach(size 16 24 32 48 64 128 256)
    list(APPEND icon ${assets}/rendered/velmora-${size}.png)
endforeach()
qt_add_resources(velmora_qt icon PREFIX /velmora/icon BASE ${assets}/rendered FILES ${icon})

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
