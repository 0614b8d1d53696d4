' A Byte array takes a text's UTF-16 bytes, low byte first, and gives the text back.
'> 3 65 0 169 3
'> True
Sub main()
    Dim bytes() As Byte, text As String
    bytes = "A" & ChrW(937)
    Debug.Print UBound(bytes) & " " & bytes(0) & " " & bytes(1) & " " & bytes(2) & " " & bytes(3)
    text = bytes
    Debug.Print text = "A" & ChrW(937)
End Sub
