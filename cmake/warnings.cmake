# The warnings that every target of ours is built with; errors in the presets.
function(tessarine_warnings target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${TESSARINE_WERROR}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
      $<$<BOOL:${TESSARINE_WERROR}>:-Werror>)
  endif()
endfunction()
