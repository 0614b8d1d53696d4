' StrReverse turns a text round; Null is error 94.
'> cba []
'! 94 Invalid use of Null
Sub main()
    Debug.Print StrReverse("abc") & " [" & StrReverse("") & "]"
    x = StrReverse(Null)
End Sub
