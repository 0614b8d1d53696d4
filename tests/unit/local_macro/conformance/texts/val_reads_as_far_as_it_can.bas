' Val reads a number at the front and leaves the rest.
'> 12.5 -3 0.5 0 0 1
Sub main()
    Debug.Print Val("12.5abc") & " " & Val("-3 apples") & " " & Val(".5") & " " & Val("abc") & " " & Val("") & " " & _
        Val("1,234")
End Sub
