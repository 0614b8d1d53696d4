' A sign may stand behind the number, and a currency sign on either side of the sign, but there is one sign only.
'> -5 -5 -5 5
'> 13 13 13
Sub main()
    Debug.Print CLng("5-") & " " & CLng("-$5") & " " & CLng("$ -5") & " " & CLng("+5")
    On Error Resume Next
    x = CLng("--5"): e = Err.Number: Err.Clear
    x = CLng("(-5)"): e = e & " " & Err.Number: Err.Clear
    x = CLng("-5-"): e = e & " " & Err.Number
    Debug.Print e
End Sub
