# What a shipped program is hardened with, as far as the compiler knows it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

foreach(flag
    -fstack-protector-strong
    -fstack-clash-protection
    -fcf-protection=full
    -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER "has${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
add_compile_definitions(_FORTIFY_SOURCE=2)
# The same bytes from any folder.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
add_link_options(-Wl,-z,relro -Wl,-z,now)
