# Copies sample textures, sample objects, code templates and the help pages beside the program; a file that is
# already there unchanged is left alone.
file(MAKE_DIRECTORY ${TARGET}/ObjTextures ${TARGET}/examples/templates ${TARGET}/Help)
file(GLOB textures ${SOURCE}/examples/ObjTextures/*)
file(GLOB objects ${SOURCE}/examples/*.kvobject)
file(GLOB templates ${SOURCE}/examples/templates/*.kvcode)
file(GLOB pages ${SOURCE}/help/*)
file(COPY ${textures} DESTINATION ${TARGET}/ObjTextures)
file(COPY ${objects} DESTINATION ${TARGET}/examples)
file(COPY ${templates} DESTINATION ${TARGET}/examples/templates)
file(COPY ${pages} DESTINATION ${TARGET}/Help)
