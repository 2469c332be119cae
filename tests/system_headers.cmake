# cmake -DSOURCE=... -P: fails when a source outside ui/system and its tests includes a header of one operating
# system. What other tests need of it is in three headers of tests/support, each with a way out on Windows;
# tests/confinement, tests/counted, tests/faults, tour/customer and the benchmark of installs are for Linux only.
set(headers "unistd|fcntl|pwd|grp|dirent|dlfcn|signal|csignal|poll|termios|sched|pthread|spawn|semaphore"
            "sys/[a-z_]+|netinet/[a-z_]+|arpa/[a-z_]+|mach/[a-z_/]+|linux/[a-z_]+|Windows|windows|winsock2|io|direct|process|shlobj|mapi")
list(JOIN headers "|" headers)
set(allowed bench/install_bench.cpp tests/support/full_disk.h tests/support/ordinary_user.h tests/support/stop_signals.h)

file(GLOB_RECURSE sources RELATIVE ${SOURCE} ${SOURCE}/*.h ${SOURCE}/*.cpp)
list(FILTER sources EXCLUDE REGEX "^(build|program|ui/system|tests/ui/system|tests/(confinement|counted|faults)|tour/customer)/")
list(REMOVE_ITEM sources ${allowed})
list(LENGTH sources count)
if(count LESS 100)
    message(FATAL_ERROR "only ${count} sources are found in ${SOURCE}")
endif()
foreach(source ${sources})
    file(STRINGS ${SOURCE}/${source} found REGEX "^ *# *include *<(${headers})(\\.h)?>")
    if(found)
        message(SEND_ERROR "${source}: ${found}")
    endif()
endforeach()
