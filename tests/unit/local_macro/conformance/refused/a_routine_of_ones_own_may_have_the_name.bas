' A refused name is free for a macro's own routines.
'> shell of a turtle
Function Shell(ofWhat)
    Shell = "shell of " & ofWhat
End Function
Sub main()
    Debug.Print Shell("a turtle")
End Sub
