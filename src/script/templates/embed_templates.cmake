# cmake -DTEMPLATES=id=file;… -DSOURCE_FOLDER=… -DOUTPUT_FOLDER=… -DTABLE=… -P embed_templates.cmake
# Writes each template with CR LF line ends as <id>.txt, and all of them as one C++ table.

set(arrays "")
set(rows "")
foreach(entry IN LISTS TEMPLATES)
  string(REGEX MATCH "^([0-9]+)=(.*)$" ignored "${entry}")
  set(id ${CMAKE_MATCH_1})
  set(source ${SOURCE_FOLDER}/${CMAKE_MATCH_2})
  set(resource ${OUTPUT_FOLDER}/${id}.txt)

  file(READ ${source} text)
  string(REPLACE "\r\n" "\n" text "${text}")
  string(REPLACE "\n" "\r\n" text "${text}")
  file(WRITE ${resource} "${text}")

  file(READ ${resource} bytes HEX)
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  string(APPEND arrays "constexpr unsigned char kTemplate${id}[] = {${bytes}};\n")
  string(APPEND rows
         "    {${id}, {reinterpret_cast<const char*>(kTemplate${id}), sizeof(kTemplate${id})}},\n")
endforeach()

file(WRITE ${TABLE}
     "#include \"templates/script_templates.h\"\n\n"
     "namespace tv {\n\n"
     "namespace {\n\n${arrays}\n} // namespace\n\n"
     "std::string_view ScriptTemplate(int32_t id)\n{\n"
     "    struct Row\n    {\n        int32_t id;\n        std::string_view text;\n    };\n"
     "    static const Row rows[] = {\n${rows}    };\n"
     "    for (const Row& row : rows) {\n        if (row.id == id) {\n            return row.text;\n        }\n    }\n"
     "    return {};\n}\n\n"
     "} // namespace tv\n")
