' Stop suspends a program for its debugger; without one it ends the macro, as in a compiled program.
'> before
Sub main()
    Debug.Print "before"
    Stop
    Debug.Print "after"
End Sub
