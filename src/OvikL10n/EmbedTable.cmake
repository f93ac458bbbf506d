# cmake -DINPUT=table.json -DOUTPUT=table.cpp -DFUNCTION=name -P EmbedTable.cmake
# Writes a source that defines `std::string_view L10nSource::<FUNCTION>()` over the file's bytes.
# The bytes go in as a byte array, so no text in the table can end or bend a literal.
file(READ "${INPUT}" text)
string(JSON kind ERROR_VARIABLE problem TYPE "${text}")
if(problem OR NOT kind STREQUAL "OBJECT")
  message(FATAL_ERROR "${INPUT}: a text table must be one JSON object of key and text (${problem})")
endif()

file(READ "${INPUT}" hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REPEAT "0x[0-9a-f][0-9a-f]," 16 row)
string(REGEX REPLACE "(${row})" "\\1\n" bytes "${bytes}")
get_filename_component(name "${INPUT}" NAME)

file(WRITE "${OUTPUT}"
  "// Made at build time from ${name}.\n"
  "#include \"OvikL10n/L10nSource.h\"\n\n"
  "namespace ovik {\nnamespace {\n"
  "// A closing zero keeps the array non-empty; it is not part of the text.\n"
  "const unsigned char bytes[] = {\n${bytes}0x00};\n"
  "} // namespace\n\n"
  "std::string_view L10nSource::${FUNCTION}() {\n"
  "    return {reinterpret_cast<const char*>(bytes), sizeof bytes - 1};\n"
  "}\n\n"
  "} // namespace ovik\n")
