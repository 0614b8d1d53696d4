' A missing optional object is Nothing.
'> True False
Sub Show(Optional c As Collection)
    Debug.Print (c Is Nothing) & IIf(c Is Nothing, " ", "");
End Sub

Sub main()
    Show
    Show New Collection
    Debug.Print
End Sub
