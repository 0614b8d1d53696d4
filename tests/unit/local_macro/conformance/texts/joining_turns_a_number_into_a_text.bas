' A Variant that holds a number holds a text after & has joined something to it.
'> String 12.5True
Sub main()
    v = 1
    v = v & 2.5 & True
    Debug.Print TypeName(v); " "; v
End Sub
