' A small negative number that shows only zeros shows no sign.
'> 0 0.00
Sub main()
    Debug.Print Format(-0.4, "0") & " " & Format(-0.001, "0.00")
End Sub
