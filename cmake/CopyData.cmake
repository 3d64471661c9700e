# Copies sample textures, sample objects and the help pages beside the program; a file that is
# already there unchanged is left alone.
file(MAKE_DIRECTORY ${TARGET}/ObjTextures ${TARGET}/examples ${TARGET}/Help)
file(GLOB textures ${SOURCE}/examples/ObjTextures/*)
file(GLOB objects ${SOURCE}/examples/*.kvobject)
file(GLOB pages ${SOURCE}/help/*)
file(COPY ${textures} DESTINATION ${TARGET}/ObjTextures)
file(COPY ${objects} DESTINATION ${TARGET}/examples)
file(COPY ${pages} DESTINATION ${TARGET}/Help)
