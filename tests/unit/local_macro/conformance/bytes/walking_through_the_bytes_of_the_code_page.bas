' A text turned by vbFromUnicode has one byte a character, which LenB, MidB and AscB read.
'> 3: 65 128 66
Sub main()
    text = StrConv("A" & ChrW(8364) & "B", vbFromUnicode)
    list = LenB(text) & ":"
    For i = 1 To LenB(text)
        list = list & " " & AscB(MidB(text, i, 1))
    Next
    Debug.Print list
End Sub
