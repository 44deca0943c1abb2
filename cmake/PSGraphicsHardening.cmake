# What makes a fault in our code, or a hostile file, end in a clean stop, and what keeps the bytes
# that we write the same on every machine. tools/check-hardening looks for it in what was built.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Programs are loaded at another address each time.
check_pie_supported(LANGUAGES CXX)

check_cxx_compiler_flag(-fstack-clash-protection PSGRAPHICS_HAS_STACK_CLASH_PROTECTION)
mark_as_advanced(PSGRAPHICS_HAS_STACK_CLASH_PROTECTION)

function(psgraphics_harden target)
  target_compile_options(${target} PRIVATE
    # A buffer on the stack that is overrun, and a stack that grows past its end, are noticed.
    -fstack-protector-strong
    $<$<BOOL:${PSGRAPHICS_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
    # A multiplication and an addition round twice everywhere: machines that can fuse them would
    # write other digits.
    -ffp-contract=off)
  # Only optimised code has the C library's checks, and sanitizers have their own.
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(${target} PRIVATE
                         $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=3>)
  # An index beyond a vector, an empty optional that is read.
  target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
  # Addresses of functions are looked up at the start and cannot be changed afterwards.
  target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now LINKER:-z,noexecstack)
endfunction()
