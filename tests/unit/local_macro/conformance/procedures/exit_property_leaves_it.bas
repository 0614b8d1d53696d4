' Exit Property leaves a property procedure with the result so far.
'> early
Property Get Word() As String
    Word = "early"
    Exit Property
    Word = "late"
End Property

Sub main()
    Debug.Print Word
End Sub
