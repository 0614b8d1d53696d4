' The sign is an operator, so that -32768 is the negative of the Long 32768.
'> Long
'> Integer
Sub main()
    Debug.Print TypeName(-32768)
    Debug.Print TypeName(-32767)
End Sub
