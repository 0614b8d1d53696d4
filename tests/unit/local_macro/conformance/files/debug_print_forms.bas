' Debug.Print lays out like Print #: zones by commas, nothing by semicolons, Spc and Tab.
'> a  1  2 b
'> x             y
'> a  b
'>    c
'>
Sub main()
    Debug.Print "a "; 1; 2; "b"
    Debug.Print "x", "y"
    Debug.Print "a"; Spc(2); "b"
    Debug.Print Tab(4); "c"
    Debug.Print
End Sub
