' A pattern of many stars is decided without trying every way to share the text out.
'> False
Sub main()
    Debug.Print String(2000, "a") Like "*a*a*a*a*a*a*a*a*a*b"
End Sub
