# Writes SOURCE, a C++ file with the bytes of TEMPLATE, which the function FUNCTION tells: any compiler takes them, whatever their number.
file(READ ${TEMPLATE} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
string(REGEX REPLACE "(................................................................................)" "\\1\n" bytes "${bytes}")
file(WRITE ${SOURCE} "#include \"report/fill/PageTemplate.h\"

namespace polarline {
namespace {

constexpr unsigned char kBytes[] = {
${bytes}};

}  // namespace

std::string_view ${FUNCTION}() { return {reinterpret_cast<const char*>(kBytes), sizeof(kBytes)}; }

}  // namespace polarline
")
