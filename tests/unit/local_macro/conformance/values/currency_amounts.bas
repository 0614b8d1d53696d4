'>  0.3 
'> Currency
Sub main()
    Dim c As Currency
    c = 0.1
    c = c + 0.2
    Debug.Print c
    Debug.Print TypeName(c * 2)
End Sub
