' Choose gives the argument of that number, and Null where there is none.
'> a c True True
Sub main()
    Debug.Print Choose(1, "a", "b", "c") & " " & Choose(3, "a", "b", "c") & " " & IsNull(Choose(0, "a")) & " " & _
        IsNull(Choose(4, "a", "b", "c"))
End Sub
