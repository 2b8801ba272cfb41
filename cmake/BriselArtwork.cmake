# brisel_render_images(<outvar> <svg files...>)
# Draws each <name>.svg as images/<name>.png and, at double size, images/<name>@2x.png in the build
# folder of the caller, and puts the full paths of these files into <outvar>. With
#   qt_add_resources(<target> <resource name> PREFIX /imgs
#     BASE ${CMAKE_CURRENT_BINARY_DIR}/images FILES ${<outvar>})
# they become ":/imgs/<name>.png"; Qt finds the @2x files by itself.
function(brisel_render_images outvar)
  set(images)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/images)
  file(MAKE_DIRECTORY ${folder})
  foreach(svg IN LISTS ARGN)
    get_filename_component(source ${svg} ABSOLUTE)
    get_filename_component(name ${svg} NAME_WE)
    foreach(scale IN ITEMS 1 2)
      set(suffix)
      if(scale EQUAL 2)
        set(suffix "@2x")
      endif()
      set(image ${folder}/${name}${suffix}.png)
      add_custom_command(
        OUTPUT ${image}
        COMMAND rendersvg ${source} ${image} ${scale}
        DEPENDS ${source} rendersvg
        COMMENT "Drawing ${name}${suffix}.png"
        VERBATIM)
      list(APPEND images ${image})
    endforeach()
  endforeach()
  set(${outvar} ${images} PARENT_SCOPE)
endfunction()
