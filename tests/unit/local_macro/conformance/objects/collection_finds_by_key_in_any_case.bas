' A key finds its item whatever the case of its letters.
'> one
Sub main()
    Dim c As New Collection
    c.Add "one", "First"
    Debug.Print c("FIRST")
End Sub
