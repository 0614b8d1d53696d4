' Assigning to a Variant changes its type each time.
'> Integer Long String Date Boolean Null Empty
Sub main()
    Dim v As Variant, types As String
    v = 5: types = TypeName(v)
    v = 5&: types = types & " " & TypeName(v)
    v = "5": types = types & " " & TypeName(v)
    v = #5/5/2025#: types = types & " " & TypeName(v)
    v = True: types = types & " " & TypeName(v)
    v = Null: types = types & " " & TypeName(v)
    v = Empty: types = types & " " & TypeName(v)
    Debug.Print types
End Sub
