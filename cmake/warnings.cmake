# Warnings are errors in the project's own code. Both builds compile for Unicode.

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Werror)
add_compile_definitions(UNICODE _UNICODE)

# A LifeWatch on the stack links itself into a list and unlinks itself in its destructor. The compiler
# takes that for a dangling pointer.
add_compile_options(-Wno-dangling-pointer)

if(WIN32)
  add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601)
  # GetProcAddress and window procedures are cast between function types by design.
  add_compile_options(-Wno-cast-function-type)
endif()
