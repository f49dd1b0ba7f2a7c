# Warnings are errors in all code of ours, in both builds; both builds compile for Unicode.

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Werror)
add_compile_definitions(UNICODE _UNICODE)

# Objects that enter themselves in a list while they are on the stack, and leave it in their
# destructor, are a habit of this code; the compiler takes each of them for a dangling pointer.
add_compile_options(-Wno-dangling-pointer)

if(WIN32)
  add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601)
  # GetProcAddress and window procedures are cast between function types by design.
  add_compile_options(-Wno-cast-function-type)
endif()
