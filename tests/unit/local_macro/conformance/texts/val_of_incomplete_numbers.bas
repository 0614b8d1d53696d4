' A sign, a radix or an exponent without digits is left out.
'> 0 0 0 0 1 1 5
Sub main()
    Debug.Print Val("-") & " " & Val("&H") & " " & Val(".") & " " & Val("e5") & " " & Val("1e") & " " & Val("1e+") & " " & _
        Val("+5")
End Sub
