# Installs a Figura build tree into a scratch prefix and uses the result the
# way a host would: a CMake project that knows only CMAKE_PREFIX_PATH, and a
# plain compiler command fed by pkg-config. Run by ctest as
#   cmake -DBUILD_DIR=... -DHOST_SOURCE_DIR=... -DWORK_DIR=... [...] -P PackageTest.cmake

foreach(var BUILD_DIR HOST_SOURCE_DIR WORK_DIR LIBDIR INCLUDEDIR GENERATOR CXX_COMPILER PKG_CONFIG)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "PackageTest.cmake needs -D${var}=...")
  endif()
endforeach()

set(prefix "${WORK_DIR}/prefix")
set(host_build "${WORK_DIR}/host-build")
set(pc_build "${WORK_DIR}/pkg-config-build")
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${pc_build}")

# Nothing from the caller's environment may help the host find the package
# or its libraries.
set(clean_env ${CMAKE_COMMAND} -E env
  --unset=LD_LIBRARY_PATH --unset=CMAKE_PREFIX_PATH --unset=QWT_ROOT
  --unset=PKG_CONFIG_PATH --unset=Figura_DIR --unset=DESTDIR)

function(run step)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${step} failed (${rc}):\n${out}")
  endif()
  message(STATUS "${step}: done")
  set(run_output "${out}" PARENT_SCOPE)
endfunction()

set(config_args)
if(CONFIG)
  set(config_args --config "${CONFIG}")
endif()
run("install" ${clean_env} ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}" ${config_args})

foreach(header ${INTERNAL_HEADERS})
  file(GLOB_RECURSE leaked "${prefix}/${INCLUDEDIR}/${header}")
  if(leaked)
    message(FATAL_ERROR "the header of an internal class was installed: ${leaked}")
  endif()
endforeach()

# The CMake host.
run("configure the host" ${clean_env}
  ${CMAKE_COMMAND} -S "${HOST_SOURCE_DIR}" -B "${host_build}" -G "${GENERATOR}"
  -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
  "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINK_FLAGS}"
  -DCMAKE_PREFIX_PATH=${prefix} -DFIGURA_HOST_WITH_VOIDPLOT=${WITH_VOIDPLOT})
run("build the host" ${clean_env} ${CMAKE_COMMAND} --build "${host_build}" -j2)
run("run the host" ${clean_env} QT_QPA_PLATFORM=offscreen "${host_build}/figura-host")
message(STATUS "host says:\n${run_output}")

# The pkg-config file.
set(pc_env ${clean_env} PKG_CONFIG_PATH=${prefix}/${LIBDIR}/pkgconfig)
run("pkg-config --cflags --libs figura" ${pc_env} ${PKG_CONFIG} --cflags --libs figura)
string(STRIP "${run_output}" pc_flags)
message(STATUS "pkg-config gives: ${pc_flags}")
if(NOT pc_flags MATCHES "(^| )-lfigura( |$)")
  message(FATAL_ERROR "pkg-config does not link the library: ${pc_flags}")
endif()
run("pkg-config --libs-only-L figura" ${pc_env} ${PKG_CONFIG} --libs-only-L figura)
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
separate_arguments(lib_dirs UNIX_COMMAND "${run_output}")
# pkg-config leaves run paths to the host; this one takes them from -L.
set(rpaths)
foreach(dir ${lib_dirs})
  string(REGEX REPLACE "^-L" "" dir "${dir}")
  list(APPEND rpaths "-Wl,-rpath,${dir}")
endforeach()
separate_arguments(extra_flags UNIX_COMMAND "${CXX_FLAGS} ${LINK_FLAGS}")
set(pc_defines)
if(WITH_VOIDPLOT)
  set(pc_defines -DFIGURA_HOST_WITH_VOIDPLOT)
endif()
# Qt 6 asks its users for position-independent code; its .pc files do not say so.
run("compile the host with pkg-config's flags" ${clean_env}
  ${CXX_COMPILER} -std=c++17 -fPIC ${extra_flags} ${pc_defines} "${HOST_SOURCE_DIR}/main.cpp"
  ${pc_flags} ${rpaths} -o "${pc_build}/figura-host")
run("run the pkg-config host" ${clean_env} QT_QPA_PLATFORM=offscreen "${pc_build}/figura-host")
