' Every block may stand in one line, its parts separated by colons.
'> 3 3 one 1 x
Function OneLine() As String: OneLine = "x": End Function

Sub main()
    Dim i As Long, j As Long, s As String, c As New Collection
    Do: i = i + 1: Loop Until i = 3
    While j < 3: j = j + 1: Wend
    Select Case 1: Case 1: s = "one": Case Else: s = "else": End Select
    With c: .Add "a": End With
    Debug.Print i & " " & j & " " & s & " " & c.Count & " " & OneLine
End Sub
