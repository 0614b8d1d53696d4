' A misspelt name is found where it is read, too.
'? 7:17 Variable not defined: totl
Option Explicit
Sub main()
    Dim total As Long
    total = 1
    Debug.Print totl
End Sub
