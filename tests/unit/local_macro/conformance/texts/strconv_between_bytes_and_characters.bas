' vbFromUnicode gives a text's bytes of the Windows code page, vbUnicode makes them characters again.
'> 3 65 128 98
'> True
Sub main()
    Dim bytes() As Byte
    text = "A" & ChrW(8364) & "b"
    bytes = StrConv(text, vbFromUnicode)
    Debug.Print (UBound(bytes) + 1) & " " & bytes(0) & " " & bytes(1) & " " & bytes(2)
    Debug.Print StrConv(bytes, vbUnicode) = text
End Sub
