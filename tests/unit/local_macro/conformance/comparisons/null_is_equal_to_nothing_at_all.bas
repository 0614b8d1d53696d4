' A comparison with Null is Null, also of Null with itself.
'> True True True
Sub main()
    Debug.Print IsNull(Null = Null) & " " & IsNull(Null <> 1) & " " & IsNull("a" < Null)
End Sub
