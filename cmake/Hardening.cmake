# What the binaries that users get carry against attacks through memory. Tests/Package looks for it in the binaries.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

check_cxx_compiler_flag(-fcf-protection=full TINTWELL_HAS_CET)
# Level 3 also checks sizes that only the running program knows.
check_cxx_source_compiles("int main() { return __builtin_dynamic_object_size(\"\", 0) == 0; }" TINTWELL_HAS_FORTIFY_3)

set(is_shared "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>")
set(compile_options
    $<$<NOT:${is_shared}>:-fPIE>
    -fstack-protector-strong -fstack-clash-protection
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=$<IF:$<BOOL:${TINTWELL_HAS_FORTIFY_3}>,3,2>
    $<$<BOOL:${TINTWELL_HAS_CET}>:-fcf-protection=full>)
set(link_options
    $<$<NOT:${is_shared}>:-pie>
    -Wl,-z,relro,-z,now
    # The compiler's start files are not marked, though nothing in them minds a shadow stack.
    $<$<BOOL:${TINTWELL_HAS_CET}>:-Wl,-z,shstk>)
target_compile_options(tintwell_options INTERFACE "$<$<CONFIG:Release>:${compile_options}>")
target_link_options(tintwell_options INTERFACE "$<$<CONFIG:Release>:${link_options}>")
