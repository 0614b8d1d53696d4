' Exit names the kind of its procedure.
'? 4:5 Exit Function not allowed in Sub or Property
Sub main()
    Exit Function
End Sub
