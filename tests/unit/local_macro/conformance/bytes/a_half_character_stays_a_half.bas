' A text of an odd number of bytes keeps that number when it is assigned, joined and cut.
'> 3 3 4 1
Sub main()
    Dim text As String
    text = LeftB("ab", 3)
    Debug.Print LenB(text) & " " & LenB(text & "") & " " & LenB(text & ChrB(0)) & " " & LenB(RightB(text, 1))
End Sub
