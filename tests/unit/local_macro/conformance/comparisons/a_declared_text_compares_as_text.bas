' With a declared text a Variant number is compared by its text.
'> True False
Sub main()
    Dim t As String, v
    t = "9": v = 10
    Debug.Print (t > v) & " " & (t < v)
End Sub
