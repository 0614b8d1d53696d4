' & joins the texts of numbers, dates and truth values.
'> 12
'> 1.5True1/1/2020
'> String
Sub main()
    Debug.Print 1 & 2
    Debug.Print 1.5 & True & #1/1/2020#
    Debug.Print TypeName(1 & 2)
End Sub
