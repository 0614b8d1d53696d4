' A sign, a point, a radix or an exponent alone make no number.
'> False False False False False False False
Sub main()
    Debug.Print IsNumeric("-") & " " & IsNumeric(".") & " " & IsNumeric("&H") & " " & IsNumeric("1e") & " " & _
        IsNumeric("$") & " " & IsNumeric("()") & " " & IsNumeric("&HG")
End Sub
