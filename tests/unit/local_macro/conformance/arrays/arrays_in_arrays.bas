'>  9  2 
Sub main()
    v = Array(Array(1, 2), 3)
    v(0)(0) = 9
    Debug.Print v(0)(0); v(0)(1)
End Sub
