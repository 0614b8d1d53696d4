' Without elements there is nothing to join; what isn't an array is error 13.
'> []
'! 13 Type mismatch
Sub main()
    Debug.Print "[" & Join(Split(""), ",") & "]"
    x = Join("abc", ",")
End Sub
