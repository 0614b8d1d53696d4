' Number, source and description of Err can be assigned.
'> 77 there why
Sub main()
    Err.Number = 77
    Err.Source = "there"
    Err.Description = "why"
    Debug.Print Err.Number & " " & Err.Source & " " & Err.Description
End Sub
