' In arithmetic True counts as -1.
'> -1 0
'> -2
'> 1
'> 4
Sub main()
    Debug.Print CInt(True) & " " & CInt(False)
    Debug.Print "" & (True + True)
    Debug.Print "" & -True
    Debug.Print "" & (5 + True)
End Sub
