' A truth value takes a number's format as -1 or 0.
'> -1 0.00 True
Sub main()
    Debug.Print Format(True, "0") & " " & Format(False, "0.00") & " " & Format(True, "General Number")
End Sub
