' Loop needs Do.
'? 4:5 Loop without Do
Sub main()
    Loop
End Sub
