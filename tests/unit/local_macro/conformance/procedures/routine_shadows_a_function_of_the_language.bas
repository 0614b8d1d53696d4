' A procedure of the module hides a function of the language of the same name; VBA. in front reaches the latter.
'> mine: x
'> 3
Function Len2(s)
    Len2 = VBA.Len(s)
End Function

Function UCase(s)
    UCase = "mine: " & s
End Function

Sub main()
    Debug.Print UCase("x")
    Debug.Print Len2("abc") & ""
End Sub
