# Writes a source file with the texts of FILES, a list of names and files in turn, for page_texts.h.
set(source "#include \"host/page_texts.h\"\n\nnamespace morvex::host {\n")
while(FILES)
  list(POP_FRONT FILES name file)
  file(READ ${file} text)
  string(APPEND source "\nconst std::string_view ${name} = R\"page(${text})page\";\n")
endwhile()
string(APPEND source "\n}  // namespace morvex::host\n")
file(WRITE ${OUT} "${source}")
