' A text is read as a number first and rounded then.
'> 2 2 4 -2
Sub main()
    Debug.Print CInt("1.5") & " " & CInt("2.5") & " " & CInt("3.51") & " " & CInt("-2.500")
End Sub
