' Only an array of Byte is a text.
'! 13 Type mismatch
Sub main()
    Dim numbers(1) As Integer, text As String
    text = numbers
End Sub
