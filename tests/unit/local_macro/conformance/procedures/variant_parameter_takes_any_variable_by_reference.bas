' A Variant parameter takes a variable of any type by reference; what is written is converted to that type.
'> 13 Long
Sub Change(v As Variant)
    v = "13"
End Sub

Sub main()
    Dim n As Long
    Change n
    Debug.Print n & " " & TypeName(n)
End Sub
