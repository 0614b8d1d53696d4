' Case needs Select Case.
'? 4:5 Case without Select Case
Sub main()
    Case 1
End Sub
