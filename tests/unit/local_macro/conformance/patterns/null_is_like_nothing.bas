' Like with Null on either side is Null.
'> True True
Sub main()
    Debug.Print IsNull(Null Like "*") & " " & IsNull("a" Like Null)
End Sub
