# How programs that are built with sanitizers are tested: what their run time is told, which of its
# findings are not ours, and how much longer things may take.
set(HMATNIK_SANITIZER_ENVIRONMENT "")
set(HMATNIK_PATIENCE 1)
set(suppressions "${PROJECT_SOURCE_DIR}/tests/sanitizers")
if(HMATNIK_SANITIZE MATCHES "address")
    set(HMATNIK_PATIENCE 4)
    set(runtime asan)
    # The module of views holds the rooms that it stands on a second time, and the loader takes the
    # program's for both; one that differs would still be told.
    list(APPEND HMATNIK_SANITIZER_ENVIRONMENT
        "ASAN_OPTIONS=detect_stack_use_after_return=1:detect_odr_violation=1"
        "LSAN_OPTIONS=suppressions=${suppressions}/leaks.txt:print_suppressions=0"
        "UBSAN_OPTIONS=print_stacktrace=1")
elseif(HMATNIK_SANITIZE MATCHES "thread")
    set(HMATNIK_PATIENCE 6)
    set(runtime tsan)
    # Qt and all other libraries are built without it, so what they do can't be judged. And Qt
    # starts processes by a fork while it has threads.
    string(CONCAT options "suppressions=${suppressions}/threads.txt"
        ":ignore_noninstrumented_modules=1:die_after_fork=0")
    list(APPEND HMATNIK_SANITIZER_ENVIRONMENT "TSAN_OPTIONS=${options}")
endif()
if(HMATNIK_SANITIZE)
    # What is loaded before everything else has to come after this.
    execute_process(
        COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=lib${runtime}.so
        OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
    list(APPEND HMATNIK_SANITIZER_ENVIRONMENT
        "HMATNIK_SANITIZE=${HMATNIK_SANITIZE}" "HMATNIK_SANITIZER_RUNTIME=${runtime}")
endif()
list(APPEND HMATNIK_SANITIZER_ENVIRONMENT "HMATNIK_PATIENCE=${HMATNIK_PATIENCE}")
