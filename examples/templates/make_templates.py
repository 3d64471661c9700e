#!/usr/bin/env python3
"""Packs the code templates that ship beside the two built-in ones, from the texts below.

Run it in this folder after a change; the files it writes are committed. The program ends every
section with a line break, so no text here ends with one.
"""
import struct

TEMPLATES = {}

# One struct a triangle; a last one of texture -1 keeps the array from being empty.
TEMPLATES["cpp_vertex_arrays"] = (
    '''// %KVINFO%
#pragma once

struct KvVertex {
    float position[3];
    float texCoord[2];
};

struct KvTriangle {
    int texture;  // index in the texture library; 0 is no texture
    int transparency;
    float normal[3];
    KvVertex corners[3];
};

static const KvTriangle kvTriangles[] = {''',
    '''    // %FACEINFO%.
    {%TextureID%, %Transparency%, {%Normal.X%, %Normal.Y%, %Normal.Z%},
     {{{%Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%}, {%Coord1.U%, %Coord1.V%}},
      {{%Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%}, {%Coord2.U%, %Coord2.V%}},
      {{%Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%}, {%Coord3.U%, %Coord3.V%}}}},''',
    '''    {-1, 0, {}, {}},
};

static const int kvTriangleCount = sizeof kvTriangles / sizeof kvTriangles[0] - 1;''')

# Negative numbers count back from the line: no running index is needed.
TEMPLATES["wavefront_obj"] = (
    '''# %KVINFO%''',
    '''# %FACEINFO%
usemtl %TextureName%
v %Vertex1.X% %Vertex1.Y% %Vertex1.Z%
v %Vertex2.X% %Vertex2.Y% %Vertex2.Z%
v %Vertex3.X% %Vertex3.Y% %Vertex3.Z%
vt %Coord1.U% %Coord1.V%
vt %Coord2.U% %Coord2.V%
vt %Coord3.U% %Coord3.V%
vn %Normal.X% %Normal.Y% %Normal.Z%
f -3/-3/-1 -2/-2/-1 -1/-1/-1''',
    '''# end''')

# JSON allows no comma behind the last element: the first row names the columns, each other row
# brings its comma along.
TEMPLATES["json"] = (
    '''{
  "generator": "%KVINFO%",
  "triangles": [
    ["textureName", "texture", "transparency", "normal", "texCoords", "positions"]''',
    '''    , ["%TextureName%", %TextureID%, %Transparency%,
       [%Normal.X%, %Normal.Y%, %Normal.Z%],
       [[%Coord1.U%, %Coord1.V%], [%Coord2.U%, %Coord2.V%], [%Coord3.U%, %Coord3.V%]],
       [[%Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%],
        [%Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%],
        [%Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%]]]''',
    '''  ]
}''')

TEMPLATES["threejs_buffer_geometry"] = (
    '''// %KVINFO%
// A BufferGeometry with one group for each run of triangles of one material; materials[i] says which
// texture and transparency the group of materialIndex i has.
import * as THREE from 'three';

export const materials = [];
const positions = [];
const normals = [];
const uvs = [];
const groups = [];

function triangle(texture, transparency, normal, uv, position) {
  let index = materials.findIndex(
    (m) => m.texture === texture && m.transparency === transparency);
  if (index < 0) index = materials.push({ texture, transparency }) - 1;
  const last = groups[groups.length - 1];
  if (last !== undefined && last.materialIndex === index) last.count += 3;
  else groups.push({ start: positions.length / 3, count: 3, materialIndex: index });
  normals.push(...normal, ...normal, ...normal);
  uvs.push(...uv);
  positions.push(...position);
}
''',
    '''triangle("%TextureName%", %Transparency%, [%Normal.X%, %Normal.Y%, %Normal.Z%],
  [%Coord1.U%, %Coord1.V%, %Coord2.U%, %Coord2.V%, %Coord3.U%, %Coord3.V%],
  [%Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%,
   %Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%,
   %Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%]);''',
    '''
export const geometry = new THREE.BufferGeometry();
geometry.setAttribute('position', new THREE.Float32BufferAttribute(positions, 3));
geometry.setAttribute('normal', new THREE.Float32BufferAttribute(normals, 3));
geometry.setAttribute('uv', new THREE.Float32BufferAttribute(uvs, 2));
for (const { start, count, materialIndex } of groups) {
  geometry.addGroup(start, count, materialIndex);
}''')

TEMPLATES["python_lists"] = (
    '''# -*- coding: cp1252 -*-
# %KVINFO%
# One tuple a triangle: texture name, texture index, transparency, normal, texture coordinates and
# positions of the three corners.
triangles = [''',
    '''    # %FACEINFO%
    ("%TextureName%", %TextureID%, %Transparency%, (%Normal.X%, %Normal.Y%, %Normal.Z%),
     ((%Coord1.U%, %Coord1.V%), (%Coord2.U%, %Coord2.V%), (%Coord3.U%, %Coord3.V%)),
     ((%Vertex1.X%, %Vertex1.Y%, %Vertex1.Z%),
      (%Vertex2.X%, %Vertex2.Y%, %Vertex2.Z%),
      (%Vertex3.X%, %Vertex3.Y%, %Vertex3.Z%))),''',
    ''']''')

for name, texts in TEMPLATES.items():
    with open(name + ".kvcode", "wb") as out:
        out.write(b"CODE")
        for text in texts:
            data = text.replace("\n", "\r\n").encode("cp1252")
            out.write(struct.pack("<i", len(data)) + data)
