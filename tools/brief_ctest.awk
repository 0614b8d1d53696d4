# Keeps of ctest's output what a reader needs: one line a program, and of a failed one all but its passed tests. The
# "[ RUN" line of a test that never ended stays; it tells where a program crashed.

/^\[ RUN      \]/ { running = $0; next }
/^\[       OK \]/ { running = ""; next }
/^\[-+\]|^\[=+\] Running|^\[ +PASSED|^Running main\(\)|^Internal ctest changing|^Test project|^ +Start / { next }
/^Label Time Summary/ { summary = 1 }
summary { if ($0 == "") summary = 0; next }
/^$/ { next }

{
    if (running != "") print running
    running = ""
    print
    fflush()
}
