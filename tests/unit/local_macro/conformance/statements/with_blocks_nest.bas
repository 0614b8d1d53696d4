' In a nested With the leading dot means the inner object; behind End With the outer one counts again.
'> inner 1
'> outer 2
Sub main()
    Dim outer As New Collection, inner As New Collection
    With outer
        .Add "x"
        With inner
            .Add "y"
            Debug.Print "inner " & .Count
        End With
        .Add "z"
        Debug.Print "outer " & .Count
    End With
End Sub
