# Fails when a source outside the platform folders uses an interface that only POSIX systems have.
# The Windows build compiles the core, the logic and the console tool, but not the GUI (there is no
# Qt for MinGW in Debian), so this is what keeps the GUI's sources buildable on Windows: the few
# calls that differ belong in a platform/ folder, one file per system.
#   cmake -DSOURCE_DIR=<repository> -P PortableSources.cmake
file(GLOB_RECURSE sources "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.h"
     "${SOURCE_DIR}/tools/cli/*.cpp" "${SOURCE_DIR}/tools/cli/*.h")
list(FILTER sources EXCLUDE REGEX "/platform/")

# Headers of POSIX systems, and calls whose names Windows does not have (an object's method of the
# same name, such as QProcess::kill, does not count).
set(header_pattern "#[ \t]*include[ \t]*<(unistd|fcntl|signal|csignal|pwd|grp|dlfcn|pthread|termios|dirent|syslog|poll|spawn)(\\.h)?>|#[ \t]*include[ \t]*<sys/")
set(call_pattern "(^|[^.>:A-Za-z0-9_])(::)?(fork|exec[lv]p?e?|waitpid|kill|sigaction|flock|fcntl|chmod|fchmod|chown|fchown|getuid|geteuid|getpid|umask|symlink|readlink|lstat|pread|pwrite|fsync|setenv|unsetenv|realpath|mkstemp)[ \t]*\\(")

set(found "")
foreach(source IN LISTS sources)
    file(STRINGS "${source}" lines)
    set(number 0)
    foreach(line IN LISTS lines)
        math(EXPR number "${number} + 1")
        if(line MATCHES "${header_pattern}" OR line MATCHES "${call_pattern}")
            file(RELATIVE_PATH where "${SOURCE_DIR}" "${source}")
            string(APPEND found "  ${where}:${number}: ${line}\n")
        endif()
    endforeach()
endforeach()
if(found)
    message(FATAL_ERROR "POSIX-only calls outside the platform folders:\n${found}")
endif()
list(LENGTH sources count)
message(STATUS "${count} sources call no POSIX-only interface outside the platform folders")
