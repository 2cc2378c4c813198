# Does the wall of includes notice? A small tree of folders, one file at a time that includes something, and the verdict that it must get.
set(project ${WORK}/project)

# expect(VERDICT FILE TEXT): the verdict on the folder `hall`, in which FILE holds TEXT, is a fault that matches VERDICT, or none for "right".
function(expect verdict file text)
  file(REMOVE_RECURSE ${WORK})
  foreach(header IN ITEMS include/Public.h include/Public/Records.h below/Below.h belowground/Other.h above/Above.h
          MorvenKit/include/MorvenKit/Offered.h MorvenKit/src/Hidden.h tower/Door.h tower/Hall.h hall/Hall.h hall/Source.cpp
          hall/cellar/Cellar.h hall/left/Left.h hall/left/niche/Niche.h hall/right/Right.h hall/attic/Attic.h)
    file(WRITE ${project}/${header} "#pragma once\n")
  endforeach()
  file(CREATE_LINK ${project}/above/Above.h ${project}/hall/Link.h SYMBOLIC)
  file(WRITE ${project}/${file} "${text}")

  execute_process(COMMAND ${CMAKE_COMMAND} -D ROOT=${project} -D FOLDER=hall -D "MAY_INCLUDE=${may_include}" -D "ROOMS=${rooms}"
                          -D STAMP=${WORK}/stamp -P ${CHECK}
                  ERROR_VARIABLE said RESULT_VARIABLE result)
  if(verdict STREQUAL "right")
    if(NOT result EQUAL 0 OR NOT EXISTS ${WORK}/stamp)
      message(SEND_ERROR "refused: ${file} with ${text}\n${said}")
    endif()
  elseif(result EQUAL 0 OR EXISTS ${WORK}/stamp)
    message(SEND_ERROR "not noticed: ${file} with ${text}")
  elseif(NOT said MATCHES "  ${file} [^\n]*${verdict}")
    message(SEND_ERROR "${file} with ${text} should say \"${verdict}\", but says\n${said}")
  endif()
endfunction()

# What another folder offers.
set(may_include include below MorvenKit/include tower/Door.h)
set(rooms)
foreach(include IN ITEMS [[<vector>]] [["hall/Hall.h"]] [["Hall.h"]] [["below/Below.h"]] [[<below/Below.h>]] [["../below/Below.h"]]
        [[<Public.h>]] [["Public/Records.h"]] [["MorvenKit/Offered.h"]] [["tower/Door.h"]] [["../include/Public.h"]])
  expect(right hall/File.cpp "#include ${include}\n")
endforeach()
foreach(include IN ITEMS [["above/Above.h"]] [[<above/Above.h>]] [["../above/Above.h"]] [["../below/../above/Above.h"]]
        [[<Public/../../above/Above.h>]] [["belowground/Other.h"]] [["MorvenKit/src/Hidden.h"]] [["../MorvenKit/src/Hidden.h"]]
        [["tower/Hall.h"]] [["Link.h"]] "\"${project}/above/Above.h\"")
  expect("hall may not see" hall/File.cpp "#include ${include}\n")
endforeach()

# However the line is written, and wherever it stands.
foreach(line IN ITEMS [[#include"above/Above.h"]] [[  #include <above/Above.h>]] "#\tinclude\t<above/Above.h>" [[#  include  "above/Above.h"]])
  expect("above/Above.h, which hall may not see" hall/File.cpp "${line}")
  expect("above/Above.h, which hall may not see" hall/inner/File.h "#pragma once\r\n#include <vector>\r\n\r\n${line}\r\nint x;")
endforeach()
expect(right hall/File.cpp "// not #include \"above/Above.h\"\nconst char* text = \"above/Above.h\";\n")
foreach(line IN ITEMS "#include ABOVE" "#include_next <above/Above.h>" "#include \\\n\"above/Above.h\"")
  expect("file does not stand in it" hall/File.cpp "${line}\n")
endforeach()
foreach(line IN ITEMS "/* x */ #include \"above/Above.h\"" "# /**/ include \"above/Above.h\"" "%:include \"above/Above.h\"" "#import \"above/Above.h\""
        "/**/ %: include <above/Above.h>" "#\\\ninclude \"above/Above.h\"" "#inc\\\nlude \"above/Above.h\"" "  # \\\r\ninclude <above/Above.h>")
  expect("in a form that is not looked for" hall/File.cpp "#pragma once\n${line}\n")
endforeach()
expect(right hall/File.cpp "#define LONG \\\n  1\n/* a comment */\nint x = 7 %LONG; // 50 %: of it\n")
foreach(name IN ITEMS File.hpp File.cc inner/File.hxx File.inl)
  expect("neither .cpp nor .h" hall/${name} "int x;\n")
endforeach()
expect(right hall/README.md "#include what you use\n")
expect("no header" hall/File.cpp "#include \"hall/Source.cpp\"\n")

# A folder to which nothing is offered.
set(may_include)
expect(right hall/File.cpp "#include \"hall/Hall.h\"\n#include <vector>\n")
expect("hall may not see" hall/File.cpp "#include <Public.h>\n")
expect("hall may not see" hall/File.cpp "#include \"below/Below.h\"\n")
expect("hall may not see" hall/File.cpp "#include \"MorvenKit/Offered.h\"\n")

# Rooms: the own one and those below; files beside the rooms are above all.
set(rooms cellar "left|right" left/niche attic)
expect(right hall/cellar/File.h "#include \"hall/cellar/Cellar.h\"\n")
expect(right hall/left/File.h "#include \"hall/cellar/Cellar.h\"\n#include \"Left.h\"\n")
expect(right hall/left/niche/File.h "#include \"hall/left/Left.h\"\n#include \"hall/right/Right.h\"\n")
expect(right hall/attic/File.h "#include \"hall/left/niche/Niche.h\"\n#include \"hall/right/Right.h\"\n")
expect(right hall/File.h "#include \"hall/attic/Attic.h\"\n#include \"hall/Hall.h\"\n")
expect("Left.h, which stands above it" hall/cellar/File.h "#include \"hall/left/Left.h\"\n")
expect("Attic.h, which stands above it" hall/right/File.h "#include \"../attic/Attic.h\"\n")
expect("Niche.h, which stands above it" hall/left/File.h "#include <hall/left/niche/Niche.h>\n")
expect("Hall.h, which stands above it" hall/attic/File.h "#include \"hall/Hall.h\"\n")
expect("Right.h of the room beside its own" hall/left/File.h "#include \"hall/right/Right.h\"\n")
expect("Left.h of the room beside its own" hall/right/File.h "#include \"hall/left/Left.h\"\n")
expect("stands in no room" hall/shed/File.h "#pragma once\n")
set(rooms cellar left/niche left right attic)
expect(right hall/left/File.h "#include \"hall/left/niche/Niche.h\"\n")
expect("Left.h, which stands above it" hall/left/niche/File.h "#include \"hall/left/Left.h\"\n")
