' The text of a number has no blank for the sign; Boolean, date and error have words.
'> [5] [-5] [1.5] [True] [3/8/2026] [Error 5] [1E+20]
Sub main()
    Debug.Print "[" & CStr(5) & "] [" & CStr(-5) & "] [" & CStr(1.5) & "] [" & CStr(True) & "] [" & CStr(#3/8/2026#) & _
        "] [" & CStr(CVErr(5)) & "] [" & CStr(1E20) & "]"
End Sub
