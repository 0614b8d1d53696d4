' Val's result is a Double and knows a point only, no comma.
'> Double 3.14
Sub main()
    Debug.Print TypeName(Val("3")) & " " & Val("3.14.15")
End Sub
