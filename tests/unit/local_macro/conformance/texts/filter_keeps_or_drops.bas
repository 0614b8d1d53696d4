' Filter keeps the texts that hold another text, or with False those that don't.
'> apple,grape
'> plum
'> -1
Sub main()
    fruits = Array("apple", "grape", "plum")
    Debug.Print Join(Filter(fruits, "ap"), ",")
    Debug.Print Join(Filter(fruits, "ap", False), ",")
    Debug.Print "" & UBound(Filter(fruits, "x"))
End Sub
