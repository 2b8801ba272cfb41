# cmake -DTARGET=<name> -DCLOSURE=<a,b,...> -DFORBIDDEN=<c,d,...> -P links.cmake

cmake_minimum_required(VERSION 3.25)

string(REPLACE "," ";" CLOSURE "${CLOSURE}")
string(REPLACE "," ";" FORBIDDEN "${FORBIDDEN}")
foreach(library IN LISTS FORBIDDEN)
  if(library IN_LIST CLOSURE)
    message(SEND_ERROR "${TARGET} links ${library}")
  endif()
endforeach()
